#include "tools/datacheck/Months.h"

#include <algorithm>

#include "app/career/Aircraft.h"

namespace datacheck {

namespace {

constexpr int32_t MonthsBack = 10;

} // namespace

Month monthOf(const std::string& date) {
    const int32_t number = zel::toInt(date) / 100;
    return number / 100 * 12 + number % 100 - 1;
}

zel::String monthText(Month month) {
    const int32_t number = month % 12 + 1;
    return zel::String(month / 12) + (number < 10 ? "-0" : "-") + number;
}

MonthRange activeMonths(const Record& squadron) {
    std::string first;
    std::string last;
    bool open = false;
    for (const Entry& entry : squadron.entries) {
        if (isWarDate(entry.date) && (first.empty() || entry.date < first))
            first = entry.date;
        if (isWarDate(entry.until))
            last = std::max(last, entry.until);
        else if (!entry.aircraft.empty())
            open = true;
    }
    if (first.empty())
        return {FirstMonth, FirstMonth - 1};
    return {std::max(FirstMonth, monthOf(first)),
            open || last.empty() ? LastMonth : std::min(LastMonth, monthOf(last))};
}

bool coversMonth(const Entry& entry, Month month) {
    return !entry.aircraft.empty() && (!isWarDate(entry.date) || monthOf(entry.date) <= month) &&
           (!isWarDate(entry.until) || month <= monthOf(entry.until));
}

int32_t nationOf(const Record& squadron) {
    const zel::String code = squadron.name.left(3);
    return code.length() == 3 && isDigits(code.view()) ? code.toInt() : 0;
}

std::vector<const char*> planesOf(int32_t nation, Month month) {
    for (Month back = month; back >= month - MonthsBack; --back) {
        std::vector<const char*> planes = planesDrawable(nation, back / 12, back % 12 + 1);
        if (!planes.empty())
            return planes;
    }
    return {};
}

bool flies(const Record& squadron, const char* plane) {
    return std::any_of(squadron.entries.begin(), squadron.entries.end(), [&](const Entry& entry) {
        return zel::equalsNoCase(entry.aircraft, plane);
    });
}

} // namespace datacheck
