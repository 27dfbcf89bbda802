#include "app/report/FlightAccount.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "app/mission/MissionGenerator.h"
#include "app/mission/PlaneEmission.h"
#include "app/report/CombatReport.h"
#include "app/report/LogEventType.h"
#include "app/report/Outcome.h"

namespace {

constexpr float TicksPerSecond = 50;

/// The line's time, which begins it: "T:1474 AType:...". The heads of the pieces say 0.
float secondsOf(std::string_view line) {
    constexpr std::string_view Key = "T:";
    const bool hasTime = line.substr(0, Key.size()) == Key;
    return hasTime ? static_cast<float>(zel::toInt(line.substr(Key.size()))) / TicksPerSecond : 0;
}

/// "POS(1.000,2.000,3.000)", with or without blanks after the commas.
bool readPosition(std::string_view line, FlightEvent& event) {
    constexpr std::string_view Start = " POS(";
    size_t at = line.find(Start);
    if (at == std::string_view::npos)
        return false;
    at += Start.size();
    float* const places[] = {&event.x, &event.y, &event.z};
    for (float* place : places) {
        if (at == 0)
            return false;
        *place = zel::toFloat(line.substr(at));
        at = line.find(',', at) + 1; // 0 after the last one
    }
    return std::isfinite(event.x) && std::isfinite(event.y) && std::isfinite(event.z);
}

/// A plane or the pilot in it.
struct Object {
    int32_t report = -1;
    bool isBody = false;
};

/// Reads the events out of a log, one line after the other.
class EventReader {
public:
    explicit EventReader(const CombatReport& report) : report(report) {}

    void take(std::string_view text, const LogEvent& line) {
        event = {};
        event.seconds = secondsOf(text);
        length = std::max(length, event.seconds);
        event.hasPosition = readPosition(text, event);
        const Object actor = objectOf(line.number(LogKey::Aid));
        const Object target = objectOf(line.number(LogKey::Tid));
        switch (line.number(LogKey::AType)) {
        case LogHit:
            return takeHit(actor, target);
        case LogDamage:
            event.amount = zel::toFloat(line.value(LogKey::Dmg));
            return add(target.isBody ? FlightEventKind::Wound : FlightEventKind::Damage, actor,
                       target);
        case LogDestroyed: {
            const bool isByOther = actor.report >= 0 && actor.report != target.report;
            const FlightEventKind end = isByOther ? FlightEventKind::Kill : FlightEventKind::Crash;
            return add(target.isBody ? FlightEventKind::Death : end, actor, target);
        }
        case LogTakeOff:
            return addMove(FlightEventKind::TakeOff, line.number(LogKey::Pid));
        case LogLanding:
            return addMove(FlightEventKind::Landing, line.number(LogKey::Pid));
        case LogPosition:
            return addMove(FlightEventKind::Position, line.number(LogKey::Id));
        default:
            return;
        }
    }

    std::vector<FlightEvent> events;
    float length = 0; // seconds

private:
    Object objectOf(int32_t id) const {
        const int32_t index = report.findByObject(id);
        return {index, index >= 0 && report.pilots[index].planeId != id};
    }

    /// Bullets hit many times a second.
    void takeHit(const Object& actor, const Object& target) {
        event.amount = 1;
        if (!events.empty()) {
            FlightEvent& last = events.back();
            if (last.kind == FlightEventKind::Hit && last.actor == actor.report &&
                last.target == target.report && event.seconds - last.seconds < 1) {
                last.amount += 1;
                return;
            }
        }
        add(FlightEventKind::Hit, actor, target);
    }

    void addMove(FlightEventKind kind, int32_t plane) { add(kind, objectOf(plane), {}); }

    void add(FlightEventKind kind, const Object& actor, const Object& target) {
        const bool isMinor = kind == FlightEventKind::Hit || kind == FlightEventKind::Damage ||
                             kind == FlightEventKind::Position;
        if (actor.report < 0 && target.report < 0)
            return; // of bombs, balloons and whatever else flies about
        if (events.size() >= MostFlightEvents && isMinor)
            return;
        event.kind = kind;
        event.actor = actor.report;
        event.target = target.report;
        events.push_back(event);
    }

    const CombatReport& report;
    FlightEvent event; // that is being read
};

} // namespace

FlownMission accountOf(const CombatReport& report, const MissionGenerator& generator,
                       const zel::String& log) {
    FlownMission mission;
    mission.log = log;
    mission.x = generator.locationX + generator.offsetX;
    mission.z = generator.locationZ + generator.offsetZ;
    const std::vector<int32_t> levels = planeLevels(generator.plan);
    for (size_t i = 0; i < levels.size(); ++i) {
        const PlannedPlane& plane = generator.plan[i];
        mission.plan.push_back(
            {plane.pilot, plane.squadron, plane.name, plane.type, plane.nation, levels[i]});
    }
    mission.reports = report.pilots;
    EventReader reader(report);
    for (size_t i = 0; i < report.events.size(); ++i)
        reader.take(report.lines.line(static_cast<int32_t>(i)), report.events[i]);
    mission.events = std::move(reader.events);
    mission.seconds = reader.length;
    const Outcomes outcomes(mission.reports, mission.events);
    for (size_t i = 0; i < mission.reports.size(); ++i) {
        Outcome outcome = outcomes.of(i);
        mission.fates.push_back(std::move(outcome.fate));
        mission.causes.push_back(std::move(outcome.cause));
    }
    return mission;
}
