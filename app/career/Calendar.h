#pragma once

#include <cstdint>

#include "engine/core/String.h"

/// The month after, both as yyyymm.
constexpr int32_t nextMonth(int32_t month) {
    return month % 100 == 12 ? (month / 100 + 1) * 100 + 1 : month + 1;
}

/// A day of the Gregorian calendar from which days can be counted.
///
/// A value: made from the career's date, moved, read back. It knows nothing of the war and
/// checks nothing: a day beyond its month stays as given until the next step.
class Calendar {
public:
    /// month 1 to 12, day from 1.
    Calendar(int32_t year, int32_t month, int32_t day);
    virtual ~Calendar() = default;
    /// The day of a dateNumber().
    static Calendar ofNumber(int32_t number) {
        return {number / 10000, number / 100 % 100, number % 100};
    }

    /// Every fourth year; of the full centuries only those divisible by 400.
    static bool isLeapYear(int32_t year);
    /// 28 to 31; 0 for a month outside 1 to 12.
    static int32_t daysInMonth(int32_t year, int32_t month);
    /// "January" to "December"; empty for a month outside 1 to 12.
    static zel::String monthName(int32_t month);

    /// Moves count days on. A count below 1 moves nothing; the same holds for subtractDays.
    void addDays(int32_t count);
    void subtractDays(int32_t count);

    int32_t getYear() const { return year; }
    int32_t getMonth() const { return month; }
    int32_t getDay() const { return day; }
    /// yyyymmdd as a number, 19151201 for 1 December 1915: it sorts as the date does.
    int32_t dateNumber() const { return year * 10000 + month * 100 + day; }
    /// Days since a fixed date; only differences are meaningful.
    int32_t dayNumber() const;
    /// "yyyymmdd", as the data files write dates: the year as it is, month and day of two digits.
    zel::String dateText() const;
    /// "1-December-1915", for the log; dateInLanguage (CareerTexts.h) is what the screens show.
    zel::String displayText() const;

private:
    int32_t year;
    int32_t month;
    int32_t day;
};
