#pragma once

#include <string>
#include <vector>

#include "app/book/BookTables.h"
#include "app/book/LogBook.h"
#include "app/book/PilotRecord.h"
#include "app/book/Sketch.h"

// The drawings of the web page, as SVG elements with title and description.

/// A month of the war, from its first flight on: the player's victories, and the best man of his
/// nation in the real war.
struct MonthScore {
    int32_t month = 0; // yyyymm
    int32_t own = 0;
    int32_t best = 0;
    zel::String bestMan; // empty if nobody of the tables scored
};
/// Every month from the first flight to the last one. REQUIRES: there is a flight.
std::vector<MonthScore> monthScores(const LogBook& book, const BookTables& tables, int32_t nation);

/// Bars, his beside the best man's.
std::string monthChart(const std::vector<MonthScore>& months);
/// The flights along the time, with victories, damage and injuries; ranks and decorations above.
std::string timelineOf(const LogBook& book, const Honours& honours);
/// A fight on a small map.
std::string sketchPicture(const Sketch& sketch, const zel::String& title,
                          const zel::String& described);
