#pragma once

#include <string>
#include <vector>

#include "tools/datacheck/Records.h"

namespace datacheck {

/// Months are counted as 12 times the year plus the month less one, so that the next is one more.
using Month = int32_t;

constexpr Month FirstMonth = 1915 * 12 + 11; // December 1915, where every career begins
constexpr Month LastMonth = 1918 * 12 + 10;  // the Armistice

Month monthOf(const std::string& date);
/// "1917-04".
zel::String monthText(Month month);

/// The months of the career in which a squadron is there: from its lowest date to its highest
/// `until`, or to the Armistice when a type's line has none. first above last when it never is.
struct MonthRange {
    Month first;
    Month last;
};
MonthRange activeMonths(const Record& squadron);

/// Whether the line's type is flown in that month, by the line's own dates.
bool coversMonth(const Entry& entry, Month month);

/// The nation's code that a squadron's name begins with; 0 if it doesn't begin with three digits.
int32_t nationOf(const Record& squadron);

/// What the career draws for the nation in that month. A month that offers it nothing gives way to
/// the last one before it that does, ten back at most, as in the career; then empty.
std::vector<const char*> planesOf(int32_t nation, Month month);

/// Whether one of the squadron's lines, of whatever date, holds the type. So the career asks it.
bool flies(const Record& squadron, const char* plane);

} // namespace datacheck
