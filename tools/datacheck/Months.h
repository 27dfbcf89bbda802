#pragma once

#include <string>
#include <vector>

#include "app/career/NewCareer.h"
#include "tools/datacheck/History.h"

namespace datacheck {

/// Months are counted as 12 * year + month - 1, so that the next month is one more.
using Month = int32_t;

constexpr Month FirstMonth = FirstMonthOfCareer / 100 * 12 + FirstMonthOfCareer % 100 - 1;
constexpr Month LastMonth = 1918 * 12 + 10; // November 1918, the Armistice

/// REQUIRES: isWarDate(date).
Month monthOf(const std::string& date);
/// "1917-04".
zel::String monthText(Month month);

/// The months from first to last, both included.
struct MonthRange {
    Month first;
    Month last; // before first for an empty range
};
/// The months of the career in which a squadron exists: from its lowest date to its highest until,
/// or to the Armistice if a dated line with an aircraft has no until.
MonthRange activeMonths(const HistoryRecord& squadron);

/// Whether the squadron flies anything: one of two-seaters has no aircraft of the simulator.
bool hasAircraft(const HistoryRecord& squadron);

/// Whether the line has an aircraft, or says that there is none, and its dates include the month.
bool coversMonth(const HistoryLine& line, Month month);

/// The code of the nation, the first three digits of a squadron's name; 0 without them.
int32_t nationOf(const HistoryRecord& squadron);

/// The aircraft that the career draws for the nation in that month. If there is none, those of the
/// last month before it that has any, at most ten back; otherwise the list is empty.
std::vector<const char*> planesOf(int32_t nation, Month month);

/// Whether any line of the squadron, whatever its date, has the aircraft, as the career decides it.
bool flies(const HistoryRecord& squadron, const char* plane);

} // namespace datacheck
