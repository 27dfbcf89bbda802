#include "app/book/WarPart.h"

#include <algorithm>
#include <cmath>

#include "app/book/DiaryWording.h"
#include "app/book/LogBookWording.h"
#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/career/WarPeriods.h"
#include "app/record/Sqlite.h"

namespace {

constexpr double MeanMonth = 365.25 / 12; // days

int32_t monthsBetween(int32_t from, int32_t until) {
    const int32_t days =
        Calendar::ofNumber(until).dayNumber() - Calendar::ofNumber(from).dayNumber();
    return std::max(0, static_cast<int32_t>(std::lround(days / MeanMonth)));
}

} // namespace

WarPart readWarPart(SqliteFile& record, const Database& career) {
    WarPart war;
    war.today = career.calendar().dateNumber();
    war.since = war.today;
    SqliteStatement row(record, "SELECT date FROM flight ORDER BY number");
    while (row.next())
        war.flights.push_back(row.integer(0));
    if (const auto page = int32_t(record.number("SELECT date FROM page ORDER BY id LIMIT 1"));
        page != 0)
        war.since = std::min(war.since, page);
    if (!war.flights.empty())
        war.since = std::min(war.since, war.flights.front());
    // A pilot has missions from before the player took him over, too.
    war.flown = int32_t(war.flights.size());
    if (record.number("SELECT count(*) FROM gap") > 0 || record.failed())
        war.flown = std::max(war.flown, int32_t(career.player().missions));
    war.expected = war.flown + periodsToCome(war.today);
    return war;
}

zel::String flightOfText(const WarPart& war, bool isNext) {
    if (war.today >= FirstDayOfPeace)
        return textOf(wording::WarIsDone);
    const int32_t flight = war.flown + (isNext ? 1 : 0);
    return textOf(wording::FlightOf, {flight, std::max(flight, war.expected)});
}

zel::String servedText(const WarPart& war) {
    zel::String served = countText(wording::BookMonths, monthsBetween(war.since, war.today));
    if (war.today >= FirstDayOfPeace)
        return served;
    const zel::String left =
        countText(wording::BookMonths, monthsBetween(war.today, FirstDayOfPeace));
    return war.flights.empty() ? textOf(wording::MonthsToCome, {left})
                               : textOf(wording::ServedAndToCome, {served, left});
}
