#include "app/mission/DailyMission.h"

#include "app/career/Aircraft.h"
#include "app/mission/Configuration.h"
#include "app/mission/MissionGenerator.h"
#include "engine/core/Log.h"
#include "engine/core/Registry.h"

namespace {

constexpr float WesternRange = 20000.0F; // metres around the base, north and east
constexpr float ChannelRange = 10000.0F;
constexpr int32_t HighestIndex = 1000000000; // of a template: there is room for planes behind it

void placeMission(const Squadron& squadron, MissionGenerator& generator) {
    const float range = squadron.onChannelMap == 1 ? ChannelRange : WesternRange;
    generator.setMissionLocation(squadron.onChannelMap, squadron.baseX, squadron.baseY,
                                 squadron.baseZ, range, 0, range);
}

/// Only the player's own countrymen: the enemy is for him to find.
std::vector<zel::String> rosterOf(const std::vector<PlannedPlane>& plan) {
    std::vector<zel::String> roster;
    for (const PlannedPlane& plane : plan)
        if (plane.nation == plan.front().nation)
            roster.push_back(plane.name + " (" + planeDisplayName(plane.type) + ")");
    return roster;
}

zel::String prepare(Database& career, MissionGenerator& generator, const zel::String& file) {
    placeMission(career.playerSquadron(), generator);
    generator.reseed(career.careerSeed());
    const bool loaded = generator.loadTemplate(MissionTemplateFile);
    generator.scanTemplate();
    generator.planMission(true);
    if (!loaded)
        return zel::String("The mission template can't be read: ") + MissionTemplateFile;
    if (generator.attackArea < 0)
        return zel::String("The mission template has no attack area: ") + MissionTemplateFile;
    if (generator.maxIndex > HighestIndex)
        return zel::String("The mission template's Index values are too high: ") +
               MissionTemplateFile;
    if (generator.plan.empty())
        return "No mission can be planned for today";
    generator.generateMission();
    return generator.saveMission(file) ? zel::String() : "The mission can't be written to " + file;
}

} // namespace

DailyMission writeDailyMission(Database& career, MissionGenerator& generator) {
    zel::log("Generating mission file", "MenuGameStartMission", zel::LogInfo);
    DailyMission mission;
    mission.file = Configuration::getRofDirectory() + "data\\Missions\\" + MissionFileName;
    mission.problem = prepare(career, generator, mission.file);
    if (!mission.problem.empty())
        zel::log(mission.problem, "MissionGenerator", zel::LogError);
    if (!generator.plan.empty()) {
        mission.roster = rosterOf(generator.plan);
        mission.isFlyable = zel::Registry::isOn(generator.plan.front().type);
    }
    return mission;
}

zel::String startLabel(const DailyMission& mission) {
    return mission.isFlyable ? "Start Mission" : "Skip Mission (no flyable plane available)";
}
