#include "app/record/RecordWriter.h"

#include <algorithm>
#include <string>

#include "app/career/Database.h"
#include "app/career/UnitNames.h"
#include "app/record/OrdersTable.h"
#include "app/record/RecordSchema.h"
#include "app/record/Sqlite.h"

namespace {

std::string_view nameOf(const Database& career, int32_t pilot) {
    return zel::arrayText(career.pilot(pilot).name);
}

void writePlanes(SqliteFile& file, int32_t flight, const FlownMission& mission) {
    SqliteStatement plane(file, "INSERT INTO flight_plane VALUES(?,?,?,?,?,?,?,?)");
    int32_t place = 0;
    for (const FlightPlane& planned : mission.plan)
        plane.insert(flight, place++, orNull(planned.pilot), planned.name, orNull(planned.squadron),
                     planned.aircraft, planned.nation, planned.level);
}

void writeReports(SqliteFile& file, int32_t flight, const FlownMission& mission) {
    SqliteStatement row(file,
                        "INSERT INTO flight_report VALUES(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
    for (size_t place = 0; place < mission.reports.size(); ++place) {
        const PilotReport& report = mission.reports[place];
        row.insert(flight, static_cast<int32_t>(place), orNull(report.pilot), report.name,
                   report.type, report.country, report.human,
                   static_cast<int32_t>(report.kills.size()), report.damage, report.injuryPercent,
                   report.killCount, report.shotDown, orNull(report.shotdownBy),
                   orNull(report.shotdownByOwn), report.flightStatus, report.dead,
                   mission.fates[place], orNull(mission.causes[place]));
    }
}

void writeEvents(SqliteFile& file, int32_t flight, const FlownMission& mission) {
    const auto orNone = [](bool is, float value) {
        return is ? std::optional<float>(value) : std::nullopt;
    };
    size_t place = 0;
    file.insertAll("flight_event", 10, [&](SqliteRow& row) {
        if (place == mission.events.size())
            return false;
        const FlightEvent& event = mission.events[place];
        row.set(flight, static_cast<int32_t>(place++), event.seconds, kindName(event.kind),
                orNull(event.actor), orNull(event.target), orNone(event.amount > 0, event.amount),
                orNone(event.hasPosition, event.x), orNone(event.hasPosition, event.y),
                orNone(event.hasPosition, event.z));
        return true;
    });
}

} // namespace

void RecordWriter::write(SqliteFile& file, const Database& career, const RecordEvents& events) {
    SqliteStatement gap(file, "INSERT INTO gap(since, until) VALUES(?,?)");
    for (; gaps < events.gaps.size(); ++gaps)
        gap.insert(events.gaps[gaps].since, events.gaps[gaps].until);
    writeFlights(file, career, events);
    writeVictories(file, career, events);
    writePostings(file, career, events);
    SqliteStatement base(
        file, "INSERT INTO base(date,squadron,name,on_channel_map,x,z) VALUES(?,?,?,?,?,?)");
    for (; bases < events.bases.size(); ++bases) {
        const RecordEvents::DatedBase& moved = events.bases[bases];
        base.insert(moved.date, moved.squadron, moved.name, moved.onChannelMap, moved.x, moved.z);
    }
}

void RecordWriter::writeFlights(SqliteFile& file, const Database& career,
                                const RecordEvents& events) {
    SqliteStatement row(file,
                        "INSERT INTO flight(date,pilot,pilot_name,squadron,base,on_channel_map,x,z,"
                        "aircraft,log,log_hash,seconds,kills,injury,damage,landed,dead,fate,cause)"
                        " VALUES(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
    for (; flights < events.flights.size(); ++flights) {
        const RecordEvents::DatedFlight& flown = events.flights[flights];
        const FlownMission& mission = flown.mission;
        if (mission.plan.empty()) {
            flightNumbers.push_back(-1);
            continue;
        }
        const FlightPlane& own = mission.plan.front();
        const auto report =
            std::find_if(mission.reports.begin(), mission.reports.end(),
                         [&](const PilotReport& one) { return one.pilot == own.pilot; });
        const bool isKnown = report != mission.reports.end();
        const auto place = static_cast<size_t>(report - mission.reports.begin());
        const auto figure = [&](auto value) {
            return isKnown ? std::optional(value(*report)) : std::nullopt;
        };
        row.insert(flown.date, own.pilot, nameOf(career, own.pilot), flown.squadron, flown.base,
                   flown.onChannelMap, mission.x, mission.z, own.aircraft, flown.log, flown.logHash,
                   mission.seconds, figure([](const PilotReport& r) {
                       return static_cast<int32_t>(r.kills.size());
                   }),
                   figure([](const PilotReport& r) { return r.injuryPercent; }),
                   figure([](const PilotReport& r) { return r.damage; }),
                   figure([](const PilotReport& r) { return r.flightStatus == 1; }),
                   figure([](const PilotReport& r) { return r.dead != 0; }),
                   isKnown ? orNull(mission.fates[place]) : std::nullopt,
                   isKnown ? orNull(mission.causes[place]) : std::nullopt);
        if (file.failed())
            return;
        const auto number = static_cast<int32_t>(file.lastRow());
        flightNumbers.push_back(number);
        writePlanes(file, number, mission);
        writeReports(file, number, mission);
        writeEvents(file, number, mission);
        noteReportedLog(file, flown.date, flown.log);
    }
}

void RecordWriter::writeVictories(SqliteFile& file, const Database& career,
                                  const RecordEvents& events) {
    file.insertAll("victory", 12, [&](SqliteRow& row) {
        if (victories == events.victories.size())
            return false;
        const RecordEvents::DatedVictory& won = events.victories[victories++];
        const Victory& victory = won.victory;
        const int32_t flight = won.flight < 0 ? -1 : flightNumbers[won.flight];
        row.set(NewKey, won.date, orNull(flight), victory.victor, nameOf(career, victory.victor),
                won.victorSquadron, victory.victorAircraft, orNull(victory.victim),
                victory.victim >= 0 ? nameOf(career, victory.victim) : victory.victimName.view(),
                orNull(won.victimSquadron), victory.victimAircraft, victory.hasDied);
        return true;
    });
}

void RecordWriter::writePostings(SqliteFile& file, const Database& career,
                                 const RecordEvents& events) {
    file.insertAll("posting", 10, [&](SqliteRow& row) {
        if (postings == events.postings.size())
            return false;
        const RecordEvents::DatedPosting& posted = events.postings[postings++];
        const Posting& posting = posted.posting;
        std::optional<std::string_view> other = orNull(posting.otherName);
        if (posting.other >= 0)
            other = nameOf(career, posting.other);
        row.set(NewKey, posted.date, kindName(posting.kind), causeName(posting.cause),
                posting.pilot, nameOf(career, posting.pilot), posted.squadron, orNull(posting.from),
                orNull(posting.other), other);
        return true;
    });
}

void writeMeta(SqliteFile& file, const char* key, const zel::String& value) {
    SqliteStatement(file, "INSERT OR REPLACE INTO meta VALUES(?,?)").insert(key, value);
}

void writeFoundations(SqliteFile& file, const Database& career, const char* version) {
    writeMeta(file, "program", version);
    writeMeta(file, "schema", zel::String(RecordVersion));
    SqliteStatement(file, "INSERT OR REPLACE INTO meta VALUES('career',?)")
        .insert(career.careerNumber);
    SqliteStatement row(file, "INSERT INTO squadron VALUES(?,?,?,?)");
    for (size_t i = 0; i < career.squadrons.size(); ++i) {
        const int32_t unit = unitNumber(career, career.squadrons[i].squadronFile);
        const zel::String name = hasUnitName(unit) ? unitName(unit) : zel::String();
        row.insert(static_cast<int32_t>(i), int32_t{career.squadrons[i].nation}, orNull(unit),
                   orNull(name));
    }
}
