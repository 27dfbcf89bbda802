#include "app/mission/DailyMission.h"

#include "app/career/Aircraft.h"
#include "app/career/Wording.h"
#include "app/mission/Configuration.h"
#include "app/mission/MissionGenerator.h"
#include "app/mission/MissionWriter.h"
#include "engine/core/Log.h"
#include "engine/core/Registry.h"

namespace {

constexpr float WesternRange = 20000.0F; // metres around the base, north and east
constexpr float ChannelRange = 10000.0F;
constexpr int32_t HighestIndex = 1000000000; // of a template: leaves room for the planes

void placeMission(const Squadron& squadron, MissionGenerator& generator) {
    const float range = squadron.onChannelMap == 1 ? ChannelRange : WesternRange;
    generator.setMissionLocation(squadron.onChannelMap, squadron.baseX, squadron.baseY,
                                 squadron.baseZ, range, 0, range);
}

/// Only the player's countrymen: he must find the enemy himself.
void listRoster(const std::vector<PlannedPlane>& plan, DailyMission& mission) {
    for (const PlannedPlane& plane : plan) {
        if (plane.nation != plan.front().nation)
            continue;
        mission.planes.push_back(plane);
        mission.roster.push_back(textOf(
            wording::PlaneOfPilot, {plane.name, nameInLanguage(planeDisplayName(plane.type))}));
    }
}

struct PreparationResult {
    MissionFault fault;
    zel::String problem;
    zel::FileFault reason = zel::FileFault::None;
};

PreparationResult failure(MissionFault fault, const zel::String& problem,
                          zel::FileFault reason = zel::FileFault::None) {
    return {fault, problem, reason};
}

PreparationResult prepare(Database& career, MissionGenerator& generator, const zel::String& file) {
    placeMission(career.playerSquadron(), generator);
    generator.reseed(career.careerSeed());
    const bool loaded = generator.loadTemplate(MissionTemplateFile);
    scanTemplate(generator);
    planMission(generator, career, true);
    const zel::String name = MissionTemplateFile;
    if (!loaded)
        return failure(MissionFault::TemplateUnread, "The mission template can't be read: " + name);
    if (generator.attackArea < 0)
        return failure(MissionFault::TemplateUnfit,
                       "The mission template has no attack area: " + name);
    if (generator.maxIndex > HighestIndex)
        return failure(MissionFault::TemplateUnfit,
                       "The mission template's Index values are too high: " + name);
    if (generator.plan.empty())
        return failure(MissionFault::NothingPlanned, "No mission can be planned for today");
    generateMission(generator, career);
    if (const zel::FileFault reason = generator.lines.writeFile(file);
        reason != zel::FileFault::None)
        return failure(MissionFault::FileUnwritten,
                       "The mission can't be written to " + file + ": " + zel::faultText(reason),
                       reason);
    return {MissionFault::None, {}};
}

} // namespace

zel::String missionFilePath() {
    return Configuration::getRofDirectory() + "data\\Missions\\" + MissionFileName;
}

DailyMission writeDailyMission(Database& career, MissionGenerator& generator) {
    zel::log("Generating mission file", "MenuGameStartMission", zel::LogInfo);
    DailyMission mission;
    mission.file = missionFilePath();
    const PreparationResult outcome = prepare(career, generator, mission.file);
    mission.fault = outcome.fault;
    mission.problem = outcome.problem;
    mission.reason = outcome.reason;
    if (mission.fault != MissionFault::None)
        zel::log(mission.problem, "MissionGenerator", zel::LogError);
    mission.sky = skyOf(generator.lines);
    mission.fightX = generator.locationX + generator.offsetX;
    mission.fightZ = generator.locationZ + generator.offsetZ;
    if (!generator.plan.empty()) {
        listRoster(generator.plan, mission);
        mission.isFlyable = zel::Registry::isOn(generator.plan.front().type);
    }
    return mission;
}

zel::String startLabel(const DailyMission& mission) {
    return textOf(mission.isFlyable ? wording::StartMission : wording::SkipMission);
}
