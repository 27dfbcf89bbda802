#include "app/career/Calendar.h"

#include <gtest/gtest.h>

#include "tests/support/Printers.h"

namespace {

int32_t moved(Calendar date, int32_t days) {
    date.addDays(days);
    date.subtractDays(-days); // one of the two counts is below 1 and moves nothing
    return date.dateNumber();
}

static_assert(nextMonth(191511) == 191512 && nextMonth(191512) == 191601);

TEST(Calendar, CrossesTheEndsOfMonthsAndYears) {
    EXPECT_EQ(moved({1917, 12, 31}, 1), 19180101);
    EXPECT_EQ(moved({1918, 1, 1}, -1), 19171231);
    EXPECT_EQ(moved({1916, 2, 28}, 1), 19160229) << "1916 is a leap year";
    EXPECT_EQ(moved({1916, 3, 1}, -1), 19160229);
    EXPECT_EQ(moved({1917, 3, 1}, -1), 19170228);
    for (const auto& [year, isLeap] :
         {std::pair{1916, true}, {1600, true}, {2000, true}, {1918, false}, {1900, false}})
        EXPECT_EQ(moved({year, 2, 28}, 1) % 10000, isLeap ? 229 : 301) << year;
}

TEST(Calendar, CountsTheWholeWar) {
    // The days from the first day of a career to the Armistice, computed by `date -d`.
    EXPECT_EQ(moved({1915, 12, 1}, 1076), 19181111);
    EXPECT_EQ(moved({1918, 11, 11}, -1076), 19151201);
    EXPECT_EQ(Calendar(1918, 11, 11).dayNumber() - Calendar(1915, 12, 1).dayNumber(), 1076);
    for (Calendar date(1899, 12, 31); date.getYear() < 1921;) {
        const int32_t before = date.dayNumber();
        date.addDays(1);
        ASSERT_EQ(date.dayNumber(), before + 1) << date.dateNumber();
    }
}

TEST(Calendar, TakesWhatItIsGiven) {
    EXPECT_EQ(Calendar(1917, 2, 30).dateNumber(), 19170230);
    EXPECT_EQ(moved({1917, 2, 30}, 1), 19170301) << "a day beyond its month ends the month";
    EXPECT_EQ(Calendar::daysInMonth(1917, 13), 0);
    EXPECT_EQ(Calendar::daysInMonth(1917, -1), 0);
    EXPECT_EQ(Calendar::monthName(0), "");
    EXPECT_EQ(Calendar::monthName(13), "");
}

TEST(Calendar, WritesDates) {
    EXPECT_EQ(Calendar(1915, 12, 1).dateText(), "19151201");
    EXPECT_EQ(Calendar(1916, 2, 29).dateText(), "19160229");
    EXPECT_EQ(Calendar(1915, 12, 1).displayText(), "1-December-1915");
    EXPECT_EQ(Calendar(1918, 11, 11).displayText(), "11-November-1918");
    zel::String initials;
    for (int32_t month = 1; month <= 12; ++month)
        initials += Calendar::monthName(month).left(1);
    EXPECT_EQ(initials, "JFMAMJJASOND");
}

} // namespace
