#include "app/career/Calendar.h"

namespace {

// Read with the month itself, so index 0 isn't a month.
constexpr int32_t DaysInMonth[] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr const char* MonthNames[] = {"",        "January",  "February", "March",  "April",
                                      "May",     "June",     "July",     "August", "September",
                                      "October", "November", "December"};

bool isMonth(int32_t month) { return month >= 1 && month <= 12; }

zel::String twoDigits(int32_t number) {
    return number < 10 ? zel::String("0") + number : zel::String(number);
}

} // namespace

Calendar::Calendar(int32_t year, int32_t month, int32_t day) : year(year), month(month), day(day) {}

bool Calendar::isLeapYear(int32_t year) {
    return year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
}

int32_t Calendar::daysInMonth(int32_t year, int32_t month) {
    if (month == 2 && isLeapYear(year))
        return 29;
    return isMonth(month) ? DaysInMonth[month] : 0;
}

zel::String Calendar::monthName(int32_t month) { return isMonth(month) ? MonthNames[month] : ""; }

// Day by day: a step of the war is a few weeks, and each line can be checked by eye.
void Calendar::addDays(int32_t count) {
    for (; count > 0; --count) {
        if (++day <= daysInMonth(year, month))
            continue;
        day = 1;
        if (++month == 13) {
            month = 1;
            ++year;
        }
    }
}

void Calendar::subtractDays(int32_t count) {
    for (; count > 0; --count) {
        if (--day >= 1)
            continue;
        if (--month < 1) {
            month = 12;
            --year;
        }
        day = daysInMonth(year, month);
    }
}

// With the year begun in March the days before a month follow one rule, and leap days come last.
int32_t Calendar::dayNumber() const {
    const int32_t years = month > 2 ? year : year - 1;
    const int32_t months = (month + 9) % 12;
    return years * 365 + years / 4 - years / 100 + years / 400 + (months * 153 + 2) / 5 + day;
}

zel::String Calendar::dateText() const {
    return zel::String(year) + twoDigits(month) + twoDigits(day);
}

zel::String Calendar::displayText() const {
    return zel::String(day) + "-" + monthName(month) + "-" + year;
}
