#include "app/book/RecordedService.h"

#include <algorithm>

#include "app/record/Sqlite.h"

namespace {

constexpr int32_t AllRows = -1; // as a limit

/// Reads his flights and returns the number of the last one; 0 without any.
int32_t readFlights(SqliteFile& record, const SavedPilot& pilot, PilotService& service) {
    int32_t last = 0;
    SqliteStatement row(record, "SELECT date, number, unit FROM flight"
                                " LEFT JOIN squadron ON squadron.id = flight.squadron"
                                " WHERE pilot = ? AND date <= ? ORDER BY number LIMIT ?");
    row.with(pilot.pilot, pilot.date, pilot.isShelved ? pilot.missions : AllRows);
    while (row.next()) {
        service.flights.push_back(row.integer(0));
        last = row.integer(1);
        service.addBranch(row.integer(0), branchOfUnit(row.index(2)));
    }
    return last;
}

/// The day on which he took another's place; 0 for one who didn't.
int32_t daySucceeded(SqliteFile& record, int32_t pilot) {
    SqliteStatement row(record, "SELECT date FROM posting WHERE pilot = ?"
                                " AND kind IN ('transferred', 'succeeded')" // of the index
                                " AND kind = 'succeeded' ORDER BY id DESC LIMIT 1");
    row.with(pilot);
    return row.next() ? row.integer(0) : 0;
}

/// He was in his squadron from the first day of the war, and flies from the day on which the player
/// took him over.
int32_t firstDay(SqliteFile& record, const SavedPilot& pilot, const PilotService& service) {
    if (const int32_t day = daySucceeded(record, pilot.pilot); day != 0)
        return day;
    int32_t day =
        service.flights.empty() ? pilot.date : std::min(pilot.date, service.flights.front());
    if (const auto page = int32_t(record.number("SELECT date FROM page ORDER BY id LIMIT 1"));
        page != 0)
        day = std::min(day, page);
    return day;
}

void readVictories(SqliteFile& record, const SavedPilot& pilot, int32_t lastFlight,
                   PilotService& service) {
    // CROSS: the flights first, whose victories are indexed.
    SqliteStatement row(record, "SELECT victory.date FROM flight"
                                " CROSS JOIN victory ON victory.flight = flight.number"
                                " WHERE flight.pilot = ?1 AND victor = ?1"
                                " AND flight.number <= ?2 ORDER BY id LIMIT ?3");
    row.with(pilot.pilot, lastFlight, pilot.isShelved ? pilot.victories : AllRows);
    while (row.next())
        service.victories.push_back(row.integer(0));
}

/// The last day of the last gap of his service; 0 without one.
int32_t endOfGap(SqliteFile& record, const SavedPilot& pilot) {
    SqliteStatement row(record,
                        "SELECT until FROM gap WHERE until >= ?1 AND until <= min(?2, coalesce("
                        "(SELECT date FROM flight WHERE pilot = ?3 AND dead <> 0), ?2))"
                        " ORDER BY id DESC LIMIT 1");
    row.with(daySucceeded(record, pilot.pilot), pilot.date, pilot.pilot);
    return row.next() ? row.integer(0) : 0;
}

void fill(std::vector<int32_t>& days, int32_t count, int32_t day) {
    days.resize(size_t(std::max(count, int32_t(days.size()))), day);
    std::sort(days.begin(), days.end());
}

} // namespace

PilotService readService(SqliteFile& record, const SavedPilot& pilot) {
    PilotService service;
    service.nation = pilot.nation;
    service.until = pilot.date;
    const int32_t lastFlight = readFlights(record, pilot, service);
    if (service.flights.empty() && !pilot.isPlayer)
        return service;
    if (!pilot.isAlive && !service.flights.empty())
        service.until = service.flights.back();
    service.since = firstDay(record, pilot, service);
    if (service.branches.empty())
        service.addBranch(service.since, branchOfUnit(pilot.unit));
    readVictories(record, pilot, lastFlight, service);
    return service;
}

void addUnrecorded(SqliteFile& record, const SavedPilot& pilot, PilotService& service) {
    const int32_t gap = endOfGap(record, pilot);
    const int32_t day = std::max(gap, service.since);
    fill(service.victories, pilot.victories, day);
    if (service.hasFlights && gap != 0)
        fill(service.flights, pilot.missions, day);
}
