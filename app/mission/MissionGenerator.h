#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "app/career/Database.h"
#include "app/career/EntireFile.h"
#include "engine/core/Random.h"
#include "engine/core/String.h"

/// A named object of the mission template.
struct TemplateObject {
    zel::String name; // without quotes
    zel::String type; // the name of its block, as written
    float x = 0;      // metres north, up and east in the template
    float y = 0;
    float z = 0;
};

/// One plane of a mission's plan.
struct PlannedPlane {
    int32_t pilot = 0; // index of the pilot
    zel::String name;
    int32_t nation = 0; // the pilot's
    int32_t skill = 0;
    int32_t shotdowns = 0;
    int32_t missions = 0;
    int32_t squadron = 0;   // index of the squadron that it flies for
    int32_t pilotFile = -1; // the pilot's; negative for a generated one
    zel::String type;       // aircraft identifier
};

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

    /// Begins the generator's draws anew from that seed.
    void reseed(uint32_t seed);

    // MissionTemplate.cpp

    /// False, with no lines, if the file can't be read.
    [[nodiscard]] bool loadTemplate(const zel::String& fileName);
    /// Collects the template's objects, its highest Index and its attack area.
    void scanTemplate();
    /// False if the file can't be written whole.
    [[nodiscard]] bool saveMission(const zel::String& fileName) const;

    // MissionPlanning.cpp

    /// Fills the plan, grouped by side, and the season. With the player, his is the first plane;
    /// without, he is not in it. On error (no squadron of a side, no way to bring the player in): a
    /// log line at level 1 and an empty plan.
    void planMission(Database& career, bool withPlayer);
    /// One attempt at a plan, the German group first. It may or may not hold the player.
    void selectPlanes(Database& career, bool withPlayer);
    /// "su", "wi" or "au"; in two half months one draw decides.
    zel::String seasonFor(int32_t year, int32_t month, int32_t day);

    // MissionWriter.cpp

    /// Where on the map the mission takes place (mapIndex 0 western front, 1 Channel), in metres,
    /// and how far it may lie from there; draws the offsets.
    void setMissionLocation(int32_t mapIndex, float x, float y, float z, float rangeX, float rangeY,
                            float rangeZ);
    /// Rewrites the template's lines into the mission of the career's day and puts the planes in.
    void generateMission(const Database& career);

    // PlaneEmission.cpp

    /// Inserts the plan's planes in front of that line, the player's coming last in the file.
    void emitPlanes(const Database& career, int32_t insertLine);

    // The same for the running program's one career. REQUIRES: there is one.

    void planMission(bool withPlayer) { planMission(*Database::instance(), withPlayer); }
    void selectPlanes(bool withPlayer) { selectPlanes(*Database::instance(), withPlayer); }
    void generateMission() { generateMission(*Database::instance()); }
    void emitPlanes(int32_t insertLine) { emitPlanes(*Database::instance(), insertLine); }

    EntireFile lines;
    int32_t maxIndex = 0; // highest object Index in use
    std::vector<TemplateObject> templateObjects;
    int32_t attackArea = -1; // index in templateObjects; -1 for none
    bool seenX = false;      // the template has such a coordinate; so seenY and seenZ
    bool seenY = false;
    bool seenZ = false;
    float minX = 0, maxX = 0, minY = 0, maxY = 0, minZ = 0, maxZ = 0; // its extent; no reader
    std::vector<int32_t> attackObjects; // what the attack area commands
    zel::Random random;
    std::vector<PlannedPlane> plan;
    zel::String seasonPrefix = "su";
    int32_t mapIndex = 0;
    float locationX = 0, locationY = 0, locationZ = 0;
    float offsetX = 0, offsetY = 0, offsetZ = 0;

private:
    struct Side {
        int32_t squadron = -1;
        zel::String type;
    };
    struct GroupSizes {
        int32_t german, allied;
    };

    bool chooseSide(const Database& career, bool allied, bool withPlayer, Side& side);
    int32_t drawSquadron(const Database& career, bool allied, bool isPlayers,
                         zel::String* alliedType);
    GroupSizes drawGroupSizes(int32_t year);
    bool fillGroup(Database& career, bool allied, const Side& side, int32_t count,
                   int32_t& vacantDraws);
    int32_t findPlace(int32_t pilot) const;
    void groupBySide(int32_t playerPlace);
    void rewriteOptions(const Calendar& date, float& originX, float& originZ);
    void moveObjects(const Database& career, float originX, float originZ);
    std::vector<int32_t> planeLevels() const;
};

/// The block that orders an attack, lowered: the template has one, and its planes are its objects.
constexpr const char* AttackAreaBlock = "mcu_cmd_attackarea";

/// A name as the mission's text can hold it: a double quote, which would end it, is an apostrophe.
zel::String missionName(const zel::String& name);

/// One line of mission text, cut at its first "=".
struct MissionLine {
    zel::String key;        // without blanks and tabs around it, in small letters
    std::string_view value; // as it stands; a view into the line
};
MissionLine splitMissionLine(const zel::String& line);
/// A block's name: the line without blanks and tabs around it, in its own case.
zel::String blockName(const zel::String& line);
/// A mission value without ";" and blanks around it, as a number.
float missionFloat(std::string_view value);
