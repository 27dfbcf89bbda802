#pragma once

#include <vector>

#include "app/book/PilotRecord.h"
#include "app/book/Standing.h"

/// What remains of a career at the end of the war.
struct WarEnd {
    PilotRecord pilot;              // the player's; the fallen one if nobody has flown since
    int32_t place = 0;              // his among all pilots, from 1
    std::vector<StandingRow> board; // eleven rows at most
    bool hasGap = false;            // the last row is his, and not the next place
    int32_t comrades = 0;           // of his squadron, with whom the player flew
    int32_t survivors = 0;          // of them
    std::vector<int32_t> fallen;    // the player's pilots before him, the last one first
    zel::String lastFallen;         // the first of them
    int32_t lastFallenVictories = 0;
    const RealAce* realFirst = nullptr; // the best of the real war; null without tables
};
constexpr size_t BoardRows = 11;

/// On error: what the career knows by itself, and the file has failed.
WarEnd readWarEnd(SqliteFile& record, const Database& career, const BookTables& tables);

// Its texts, in the language in use.

/// How many of those with whom he flew are alive; empty if he flew with fewer than two.
zel::String comradesText(const WarEnd& end);
/// Who came first in the real war; empty if that isn't known.
zel::String realFirstText(const WarEnd& end);
/// How the last of the predecessors is named.
enum class NamedFallen { Whole, Brief, None };
/// Flights, dates, place and predecessors, a line each. None: without the predecessors.
zel::String careerLines(const WarEnd& end, NamedFallen named = NamedFallen::Whole);
/// His victories in the whole real war; empty if he isn't a pilot of history.
zel::String realTotalText(const StandingRow& row);
/// The whole sheet as lines.
std::vector<zel::String> warEndLines(const WarEnd& end);
