#include "app/book/RecordedFlight.h"

#include "app/book/Theatre.h"
#include "app/record/RecordSchema.h"
#include "app/record/Sqlite.h"

namespace {

bool readHead(SqliteFile& record, int32_t number, RecordedFlight& flight) {
    SqliteStatement row(record,
                        "SELECT number, date, pilot, squadron, base, on_channel_map, x, z, seconds,"
                        " log FROM flight WHERE ?1 = 0 OR number = ?1 ORDER BY number DESC"
                        " LIMIT 1");
    row.with(number);
    if (!row.next())
        return false;
    flight.number = row.integer(0);
    flight.date = row.integer(1);
    flight.pilot = row.integer(2);
    flight.squadron = row.integer(3);
    flight.base = row.text(4);
    flight.onChannelMap = row.number(5) != 0;
    flight.mission.x = static_cast<float>(row.real(6));
    flight.mission.z = static_cast<float>(row.real(7));
    flight.mission.seconds = static_cast<float>(row.real(8));
    flight.mission.log = row.text(9);
    return true;
}

void readPlan(SqliteFile& record, RecordedFlight& flight) {
    SqliteStatement row(record, "SELECT pilot, squadron, name, aircraft, nation, level"
                                " FROM flight_plane WHERE flight = ? ORDER BY place");
    row.with(flight.number);
    while (row.next())
        flight.mission.plan.push_back(
            {row.index(0), row.index(1), row.text(2), row.text(3), row.integer(4), row.integer(5)});
}

/// Gives a pilot of the plan the name and the aircraft that the plan has for him.
void takeFromPlan(PilotReport& report, const FlownMission& mission) {
    for (const FlightPlane& plane : mission.plan)
        if (report.pilot >= 0 && plane.pilot == report.pilot) {
            report.plannedName = plane.name;
            report.plannedType = plane.aircraft;
        }
}

void readReports(SqliteFile& record, RecordedFlight& flight) {
    FlownMission& mission = flight.mission;
    SqliteStatement row(record, "SELECT pilot, name, type, nation, is_player, damage, injury,"
                                " killed, shot_down, shot_down_by, shot_down_by_own, status, dead,"
                                " fate, cause FROM flight_report WHERE flight = ? ORDER BY place");
    row.with(flight.number);
    while (row.next()) {
        PilotReport& report = mission.reports.emplace_back();
        report.pilot = row.index(0);
        report.name = row.text(1);
        report.type = row.text(2);
        report.country = row.integer(3);
        report.human = row.integer(4);
        report.damage = static_cast<float>(row.real(5));
        report.injuryPercent = row.integer(6);
        report.killCount = row.integer(7);
        report.shotDown = row.integer(8);
        report.shotdownBy = row.index(9);
        report.shotdownByOwn = row.index(10);
        report.flightStatus = row.integer(11);
        report.dead = row.integer(12);
        takeFromPlan(report, mission);
        mission.fates.push_back(row.text(13));
        mission.causes.push_back(row.text(14));
    }
}

/// Clears an index that is out of range, as in a damaged record.
void checkPlace(int32_t& place, size_t count) {
    if (place < 0 || static_cast<size_t>(place) >= count)
        place = -1;
}

void findKills(FlownMission& mission) {
    std::vector<PilotReport>& reports = mission.reports;
    for (size_t i = 0; i < reports.size(); ++i) {
        checkPlace(reports[i].shotdownBy, reports.size());
        checkPlace(reports[i].shotdownByOwn, reports.size());
        if (reports[i].shotdownBy >= 0)
            reports[reports[i].shotdownBy].kills.push_back(static_cast<int32_t>(i));
    }
}

bool findKind(const zel::String& name, FlightEventKind& kind) {
    for (auto i = FlightEventKind::Hit; i <= FlightEventKind::Position;
         i = static_cast<FlightEventKind>(static_cast<int>(i) + 1))
        if (name == kindName(i)) {
            kind = i;
            return true;
        }
    return false;
}

void readEvents(SqliteFile& record, RecordedFlight& flight) {
    FlownMission& mission = flight.mission;
    SqliteStatement row(record, "SELECT seconds, kind, actor, target, amount, x, y, z"
                                " FROM flight_event WHERE flight = ? ORDER BY place");
    row.with(flight.number);
    while (row.next()) {
        FlightEvent event;
        if (!findKind(row.text(1), event.kind))
            continue;
        event.seconds = static_cast<float>(row.real(0));
        event.actor = row.index(2);
        event.target = row.index(3);
        checkPlace(event.actor, mission.reports.size());
        checkPlace(event.target, mission.reports.size());
        event.amount = static_cast<float>(row.real(4));
        event.hasPosition = !row.isNull(5);
        event.x = static_cast<float>(row.real(5));
        event.y = static_cast<float>(row.real(6));
        event.z = static_cast<float>(row.real(7));
        mission.events.push_back(event);
    }
}

} // namespace

std::optional<RecordedFlight> readFlight(SqliteFile& record, int32_t number) {
    RecordedFlight flight;
    if (!readHead(record, number, flight))
        return std::nullopt;
    readPlan(record, flight);
    readReports(record, flight);
    findKills(flight.mission);
    readEvents(record, flight);
    if (record.failed())
        return std::nullopt;
    return flight;
}

bool isEnd(FlightEventKind kind) {
    return kind == FlightEventKind::Kill || kind == FlightEventKind::Crash ||
           kind == FlightEventKind::Death;
}

const char* townOfEnd(const RecordedFlight& flight, int32_t place) {
    for (const FlightEvent& event : flight.mission.events) {
        if (!isEnd(event.kind) || !event.hasPosition || event.target != place)
            continue;
        if (const char* town = townNear({event.x, event.z}, flight.onChannelMap, NearTown))
            return town;
    }
    return nullptr;
}
