#include "app/report/CombatReport.h"

#include <algorithm>

#include "app/career/Database.h"
#include "app/mission/MissionGenerator.h"
#include "engine/core/Log.h"

namespace {

constexpr float DeadlyInjury = 0.977F;
constexpr size_t LongestLoggedName = 31; // the simulator cuts names there

CombatReport* currentReport = nullptr;

/// The name without the victories and whatever else stands behind the first "/".
std::string_view shortName(std::string_view name) {
    const std::string_view front = zel::trimmed(name.substr(0, name.find('/')), ' ');
    return front.empty() ? zel::trimmed(name, ' ') : front;
}

/// As much of a name as comes back in the log.
std::string_view loggedPart(std::string_view name) {
    return zel::trimmed(name.substr(0, LongestLoggedName), ' ');
}

/// Whether a plane planned under that name can stand in the log under the other.
bool namesFit(std::string_view planned, std::string_view logged) {
    const std::string_view plannedShort = shortName(planned);
    const std::string_view loggedTrimmed = zel::trimmed(logged, ' ');
    const std::string_view loggedShort = shortName(logged);
    const auto fits = [&](std::string_view name) {
        return name == loggedTrimmed || name == loggedShort;
    };
    return planned == logged || loggedPart(planned) == loggedTrimmed || fits(plannedShort) ||
           fits(loggedPart(plannedShort));
}

} // namespace

CombatReport::CombatReport() { currentReport = this; }

CombatReport::~CombatReport() {
    if (currentReport == this)
        currentReport = nullptr;
}

CombatReport* CombatReport::instance() { return currentReport; }

void CombatReport::clear() {
    pilots.clear();
    events.clear();
    lines.lines.clear();
}

bool CombatReport::applyToCareer() {
    Database* career = Database::instance();
    return career != nullptr && applyReports(pilots, *career);
}

bool CombatReport::judge() {
    bool missionDone = false;
    for (size_t i = 0; i < pilots.size(); ++i) {
        PilotReport& pilot = pilots[i];
        judgePilot(pilot, static_cast<int32_t>(i));
        if (pilot.human != 0 && pilot.finished != 0) {
            zel::console("HUMAN PLAYER FINISHED MISSION");
            missionDone = true;
        }
        if (pilot.human != 0 && pilot.dead != 0) {
            zel::console("HUMAN PLAYER DIED");
            missionDone = true;
        }
    }
    return missionDone;
}

void CombatReport::judgePilot(PilotReport& pilot, int32_t index) {
    // Where the log names nobody, the last to hit the plane brought it down.
    if (pilot.shotDown != 0 && pilot.shotdownBy < 0 && !pilot.hitBy.empty()) {
        const int32_t last = pilot.hitBy.back();
        PilotReport& hitter = pilots[static_cast<size_t>(last)];
        if (hitter.country != pilot.country) {
            pilot.shotdownBy = last;
            hitter.kills.push_back(index);
        } else if (pilot.shotdownByOwn < 0) {
            pilot.shotdownByOwn = last;
        }
    }
    if (pilot.killCount != 0 || pilot.injury > DeadlyInjury)
        pilot.dead = 1;
    if (pilot.killCount != 0 || pilot.injury > 0) {
        const float percent = pilot.injury * 100;
        pilot.injuryPercent =
            pilot.killCount != 0 || percent > 100 ? 100 : static_cast<int32_t>(percent);
    }
}

int32_t CombatReport::mapPilots() {
    const MissionGenerator* generator = MissionGenerator::instance();
    return generator != nullptr ? mapPilots(generator->plan) : 0;
}

int32_t CombatReport::mapPilots(const std::vector<PlannedPlane>& plan) {
    if (plan.empty())
        return 0;
    int32_t matches = 0;
    for (size_t i = 0; i < plan.size(); ++i) {
        const PlannedPlane& plane = plan[i];
        // Men of one name and nation can't be told apart in the log: each takes one record in turn.
        const auto isNamesake = [&](const PlannedPlane& other) {
            return other.nation == plane.nation &&
                   loggedPart(shortName(other.name)) == loggedPart(shortName(plane.name));
        };
        const auto place = plan.begin() + static_cast<std::ptrdiff_t>(i);
        const bool alone = std::count_if(plan.begin(), plan.end(), isNamesake) == 1;
        auto skipped = std::count_if(plan.begin(), place, isNamesake);
        const zel::String name = missionName(plane.name);
        for (PilotReport& record : pilots) {
            if (record.country != plane.nation || !namesFit(name, record.name))
                continue;
            if (!alone && skipped-- != 0)
                continue;
            record.pilot = plane.pilot;
            record.plannedName = plane.name;
            record.skill = plane.skill;
            record.shotdowns = plane.shotdowns;
            record.missions = plane.missions;
            zel::console("MAPPING FOR " + plane.name + " TO " + plane.pilot + " SUCCESSFUL");
            ++matches;
        }
    }
    for (const PilotReport& record : pilots)
        if (record.human != 0 && record.pilot < 0)
            zel::log("The player's plane in the log, \"" + record.name +
                         "\", belongs to nobody of the plan",
                     "CombatReport", zel::LogWarning);
    return matches;
}

void CombatReport::describe() const {
    if (!zel::isConsoleShown())
        return;
    for (size_t i = 0; i < pilots.size(); ++i) {
        const PilotReport& pilot = pilots[i];
        zel::console(zel::String("PILOT ") + static_cast<int32_t>(i));
        zel::console("Name: " + pilot.name + (pilot.human != 0 ? " (HUMAN PLAYER)" : "") +
                     (pilot.finished != 0 ? " (HAS FINISHED MISSION)" : ""));
        zel::console(zel::String("CountryID: ") + pilot.country);
        zel::console(zel::String("PlaneID: ") + pilot.planeId);
        zel::console(zel::String("BodyID: ") + pilot.bodyId);
        zel::console(zel::String("Kills: ") + static_cast<int32_t>(pilot.kills.size()));
        zel::console(zel::String("Shotdown By: ") + pilot.shotdownBy);
        zel::console(zel::String("Shotdown/Collision By Own: ") + pilot.shotdownByOwn);
        if (pilot.flightStatus != 0)
            zel::console(pilot.flightStatus == 1 ? "Has landed" : "Has taken off");
        zel::console("Damage taken: " + zel::formatFloat(pilot.damage));
        zel::console("Injury: " + zel::formatFloat(pilot.injury));
        if (pilot.killCount != 0)
            zel::console("KILLED BY HEADSHOT");
        else if (pilot.injury > DeadlyInjury)
            zel::console("PILOT DIED");
        zel::console(pilot.shotDown != 0 ? "Crashed" : "Survived");
    }
}
