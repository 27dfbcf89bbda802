#pragma once

#include <string>
#include <vector>

#include "app/book/BookTables.h"
#include "app/book/LogBook.h"
#include "app/book/PilotRecord.h"
#include "app/book/RealSquadron.h"

// The drawings of the web page, as SVG elements with title and description.

/// Whether there are more months than a chart of half the page's width has room for.
bool hasManyMonths(int32_t since, int32_t end);
/// The width of a chart of victories over those months, in its own units.
float chartWidth(int32_t since, int32_t end);

/// Bars: the player's victories beside those of the best man.
std::string monthChart(const std::vector<MonthScore>& months);
/// The flights on a time axis, with victories, damage and injuries; ranks and decorations above.
std::string timelineOf(const LogBook& book, const Honours& honours);
