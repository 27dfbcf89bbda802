#include "app/report/CombatReport.h"

#include <algorithm>

#include "app/career/Database.h"
#include "app/career/PilotReport.h"
#include "app/mission/MissionGenerator.h"
#include "app/mission/MissionLine.h"
#include "app/report/ReportRules.h"
#include "engine/core/Log.h"

namespace {

CombatReport* currentReport = nullptr;

/// Empty without a generator.
const std::vector<PlannedPlane>& currentPlan() {
    static const std::vector<PlannedPlane> none;
    const MissionGenerator* generator = MissionGenerator::instance();
    return generator != nullptr ? generator->plan : none;
}

/// The name without the victories and whatever else follows the first "/".
std::string_view shortName(std::string_view name) {
    const std::string_view front = zel::trimmed(name.substr(0, name.find('/')), ' ');
    return front.empty() ? zel::trimmed(name, ' ') : front;
}

/// The part of a name that the log repeats.
std::string_view loggedPart(std::string_view name) {
    return zel::trimmed(name.substr(0, LongestLoggedName), ' ');
}

/// Whether a plane planned under one name may be the one that has the other name in the log.
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

CombatReport::CombatReport() : objects(pilots) { currentReport = this; }

CombatReport::~CombatReport() {
    if (currentReport == this)
        currentReport = nullptr;
}

CombatReport* CombatReport::instance() { return currentReport; }

void CombatReport::clear() {
    pilots.clear();
    events.clear();
    objects.clear();
    lines.clear();
}

bool CombatReport::readMission(const zel::String& folder, const zel::String& name,
                               const std::vector<PlannedPlane>& plan) {
    return lines.readPieces(folder, name) && analyse(plan);
}

bool CombatReport::readMission(const zel::String& folder, const zel::String& name) {
    return readMission(folder, name, currentPlan());
}

void CombatReport::parseLine(std::string_view line) { events.emplace_back(line); }

bool CombatReport::analyse() { return analyse(currentPlan()); }

bool CombatReport::analyse(const std::vector<PlannedPlane>& plan) {
    pilots.clear();
    objects.clear();
    events.clear();
    events.reserve(lines.lineCount());
    ReportRules rules(pilots, objects);
    for (int32_t i = 0; i < lines.lineCount(); ++i) {
        events.emplace_back(lines.textFrom(i), lines.line(i).size());
        rules.take(events.back());
    }
    const bool finished = rules.judge();
    describe();
    const int32_t matches = mapPilots(plan);
    zel::console(zel::String("MISSION FINISHED: ") + (finished ? 1 : 0));
    zel::console(zel::String("MATCHING PILOTS: ") + matches);
    return finished && matches > 0;
}

int32_t CombatReport::findByObject(int32_t id) const { return objects.find(id); }

bool CombatReport::isBody(int32_t id) const {
    const int32_t index = findByObject(id);
    return index >= 0 && pilots[index].planeId != id;
}

bool CombatReport::applyToCareer() {
    Database* career = Database::instance();
    return career != nullptr && applyReports(pilots, *career);
}

int32_t CombatReport::mapPilots() { return mapPilots(currentPlan()); }

int32_t CombatReport::mapPilots(const std::vector<PlannedPlane>& plan) {
    if (plan.empty())
        return 0;
    int32_t matches = 0;
    for (auto plane = plan.begin(); plane != plan.end(); ++plane) {
        // Pilots of one name and nation look alike in the log: each takes one record in turn.
        const zel::String name = missionName(plane->name);
        const auto isNamesake = [&](const PlannedPlane& other) {
            return other.nation == plane->nation &&
                   loggedPart(shortName(missionName(other.name))) == loggedPart(shortName(name));
        };
        const bool alone = std::count_if(plan.begin(), plan.end(), isNamesake) == 1;
        auto skipped = std::count_if(plan.begin(), plane, isNamesake);
        for (PilotReport& record : pilots) {
            if (record.country != plane->nation || !namesFit(name, record.name))
                continue;
            if (!alone && skipped-- != 0)
                continue;
            record.pilot = plane->pilot;
            record.plannedName = plane->name;
            record.plannedType = plane->type;
            record.skill = plane->skill;
            record.shotdowns = plane->shotdowns;
            record.missions = plane->missions;
            zel::console("MAPPING FOR " + plane->name + " TO " + plane->pilot + " SUCCESSFUL");
            ++matches;
        }
    }
    for (const PilotReport& record : pilots)
        if (record.human != 0 && record.pilot < 0)
            zel::log("The player's plane is \"" + record.name +
                         "\" in the log, and no pilot of the plan has that name",
                     "CombatReport", zel::LogWarning);
    return matches;
}

void CombatReport::describe() const {
    if (!zel::isConsoleShown())
        return;
    int32_t number = 0;
    for (const PilotReport& pilot : pilots) {
        zel::console(zel::String("PILOT ") + number++);
        zel::console("Name: " + pilot.name + (pilot.human != 0 ? " (HUMAN PLAYER)" : "") +
                     (pilot.finished != 0 ? " (HAS FINISHED MISSION)" : ""));
        zel::console(zel::String("CountryID: ") + pilot.country);
        zel::console(zel::String("PlaneID: ") + pilot.planeId);
        zel::console(zel::String("BodyID: ") + pilot.bodyId);
        zel::console(zel::String("Kills: ") + int32_t(pilot.kills.size()));
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
