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

MonthRange activeMonths(const HistoryRecord& squadron) {
    std::string first;
    std::string last;
    bool open = false;
    for (const HistoryLine& line : squadron.lines) {
        if (isWarDate(line.date) && (first.empty() || line.date < first))
            first = line.date;
        if (isWarDate(line.until))
            last = std::max(last, line.until);
        else if (!line.aircraft.empty() && isWarDate(line.date))
            open = true;
    }
    if (first.empty())
        return {FirstMonth, FirstMonth - 1};
    return {std::max(FirstMonth, monthOf(first)),
            open || last.empty() ? LastMonth : std::min(LastMonth, monthOf(last))};
}

bool hasAircraft(const HistoryRecord& squadron) {
    return std::any_of(squadron.lines.begin(), squadron.lines.end(),
                       [](const HistoryLine& line) { return !line.aircraft.empty(); });
}

bool coversMonth(const HistoryLine& line, Month month) {
    return (!line.aircraft.empty() || line.action == "unit") &&
           (!isWarDate(line.date) || monthOf(line.date) <= month) &&
           (!isWarDate(line.until) || month <= monthOf(line.until));
}

int32_t nationOf(const HistoryRecord& squadron) {
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

bool flies(const HistoryRecord& squadron, const char* plane) {
    return std::any_of(squadron.lines.begin(), squadron.lines.end(), [&](const HistoryLine& line) {
        return zel::equalsNoCase(line.aircraft, plane);
    });
}

} // namespace datacheck
