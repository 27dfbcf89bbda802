#pragma once

#include <cstdint>
#include <vector>

#include "app/career/Database.h"
#include "app/career/EntireFile.h"
#include "app/mission/MissionPlanning.h"
#include "app/mission/MissionTemplate.h"
#include "engine/core/Random.h"
#include "engine/core/String.h"

/// Plans air fights between a German and an Allied squadron, for the player and for the unseen war,
/// and turns the mission template into the player's mission of the day.
///
/// For a mission file: setMissionLocation, reseed, loadTemplate, scanTemplate, planMission(true),
/// generateMission, saveMission, in this order; writeDailyMission (DailyMission.h) does that. One
/// generator at a time is reachable through instance().
class MissionGenerator {
public:
    MissionGenerator();
    virtual ~MissionGenerator();
    MissionGenerator(const MissionGenerator&) = delete;
    MissionGenerator& operator=(const MissionGenerator&) = delete;

    static MissionGenerator* instance();

    /// Starts the generator's draws from that seed.
    void reseed(uint32_t seed);
    /// Where on the map the mission takes place (mapIndex 0 western front, 1 Channel), in metres,
    /// and how far it may be from there; draws the offsets.
    void setMissionLocation(int32_t mapIndex, float x, float y, float z, float rangeX, float rangeY,
                            float rangeZ);
    /// False, with no lines, if the file can't be read.
    [[nodiscard]] bool loadTemplate(const zel::String& fileName);
    /// False if the file can't be written whole.
    [[nodiscard]] bool saveMission(const zel::String& fileName) const;

    // The operations on it; those that need a career use the running program's. Each forwards to
    // the function of the same name in the header named above it. REQUIRES: a career.

    // MissionTemplate.h
    void scanTemplate();
    // MissionPlanning.h; seasonFor is drawSeason there
    void planMission(bool withPlayer);
    void selectPlanes(bool withPlayer);
    zel::String seasonFor(int32_t year, int32_t month, int32_t day);
    // MissionWriter.h
    void generateMission();
    // PlaneEmission.h
    void emitPlanes(int32_t insertLine);

    EntireFile lines;
    int32_t maxIndex = 0; // highest object Index in use
    std::vector<TemplateObject> templateObjects;
    int32_t attackArea = -1; // index in templateObjects; -1 for none
    bool seenX = false;      // the template has such a coordinate; so seenY and seenZ
    bool seenY = false;
    bool seenZ = false;
    float minX = 0, maxX = 0, minY = 0, maxY = 0, minZ = 0, maxZ = 0; // its extent; unused
    std::vector<int32_t> attackObjects; // what the attack area commands
    zel::Random random;
    std::vector<PlannedPlane> plan;
    zel::String seasonPrefix = "su";
    int32_t mapIndex = 0;
    float locationX = 0, locationY = 0, locationZ = 0;
    float offsetX = 0, offsetY = 0, offsetZ = 0;
};
