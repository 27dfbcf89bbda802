#include "app/mission/PlaneEmission.h"

#include <algorithm>

#include "app/career/Aircraft.h"
#include "app/career/PilotLevel.h"
#include "app/mission/MissionGenerator.h"
#include "app/mission/MissionLine.h"
#include "engine/core/Log.h"

namespace {

constexpr float Spacing = 100.0F; // metres between two planes of a group
// Half the distance between the groups, in metres.
constexpr float LeastSpread = 1000.0F;
constexpr float MostSpread = 2000.0F;
// A group's height above the fight's centre in metres: a fixed part, and what a draw adds.
constexpr float GroupHeight = 100.0F;
constexpr float LeastHeightDraw = -250.0F;
constexpr float MostHeightDraw = 350.0F;
// Headings in degrees, clockwise from north. The groups head for each other, give or take
// MostHeadingOff.
constexpr float Eastward = 90.0F;
constexpr float Westward = 270.0F;
constexpr float MostHeadingOff = 10.0F;

// The level that somebody but the first plane must reach, by the number of planes.
constexpr int32_t WantedLevel = 2;
constexpr int32_t WantedLevelOfMany = 3;
constexpr size_t ManyPlanes = 4;

/// Where a side's group starts, in metres. Each plane is north of the one before it.
struct GroupPlacing {
    float x, y, z;
    float heading; // degrees
};

/// The values that are drawn once per mission.
struct Placing {
    GroupPlacing allied, german;
};

/// The values in the lines of one plane.
struct EmittedPlane {
    zel::String shownName;
    int32_t index; // the entity's is one higher
    int32_t pilot;
    int32_t nation;
    int32_t level;  // 0 the player, otherwise 1 to 4
    int32_t target; // entity of the group's first plane; 0 for that plane itself
    zel::String type;
    zel::String skin; // in its quotes
    GroupPlacing place;
};

zel::String quoted(const zel::String& text) { return "\"" + text + "\""; }

void logChange(const zel::String& change) { zel::log(change, "MissionGenerator", zel::LogWarning); }

/// His name, followed by his victories if he is an ace.
zel::String nameOf(const PlannedPlane& plane) {
    const zel::String name = missionName(plane.name);
    if (name != plane.name)
        logChange("The simulator can't read the name \"" + plane.name + "\"; the mission has \"" +
                  name + "\"");
    return plane.shotdowns >= AceShotdowns ? name + "/" + plane.shotdowns : name;
}

std::vector<zel::String> placeLines(const EmittedPlane& plane) {
    return {"  XPos = " + zel::formatFloat(plane.place.x) + ";",
            "  YPos = " + zel::formatFloat(plane.place.y) + ";",
            "  ZPos = " + zel::formatFloat(plane.place.z) + ";",
            "  XOri = 0;",
            "  YOri = " + zel::formatFloat(plane.place.heading) + ";",
            "  ZOri = 0;"};
}

void append(std::vector<zel::String>& lines, const std::vector<zel::String>& more) {
    lines.insert(lines.end(), more.begin(), more.end());
}

/// The plane's block and its entity's block, with empty lines around them.
std::vector<zel::String> planeLines(const EmittedPlane& plane) {
    const zel::String name = quoted(plane.shownName);
    const zel::String description = quoted(zel::String("ID") + plane.pilot);
    const zel::String entity(plane.index + 1);
    const zel::String target = plane.target > 0 ? zel::String(plane.target) : zel::String();
    std::vector<zel::String> lines = {
        "",
        "Plane",
        "{",
        "  Name = " + name + ";",
        zel::String("  Index = ") + plane.index + ";",
        "  LinkTrId = " + entity + ";",
    };
    append(lines, placeLines(plane));
    append(lines,
           {
               "  Script = " + quoted("LuaScripts\\WorldObjects\\" + plane.type + ".txt") + ";",
               "  Model = " +
                   quoted("graphics\\planes\\" + plane.type + "\\" + plane.type + ".mgm") + ";",
               zel::String("  Country = ") + plane.nation + ";",
               "  Desc = " + description + ";",
               "  Skin = " + plane.skin + ";",
               zel::String("  AILevel = ") + plane.level + ";",
               "  CoopStart = 0;",
               "  NumberInFormation = 0;",
               "  Vulnerable = 1;",
               "  Engageable = 1;",
               "  LimitAmmo = 1;",
               "  StartInAir = 1;",
               "  Time = 0;",
               "  DamageReport = 50;",
               "  DamageThreshold = 1;",
               "  PayloadId = " + payloadId(plane.type) + ";",
               "  Fuel = 0.325;",
               "}",
               "",
               "MCU_TR_Entity",
               "{",
               "  Index = " + entity + ";",
               "  Name = " + name + ";",
               "  Desc = " + description + ";",
               "  Targets = [" + target + "];",
               "  Objects = [];",
           });
    append(lines, placeLines(plane));
    append(lines, {
                      "  Enabled = 1;",
                      zel::String("  MisObjID = ") + plane.index + ";",
                      "  OnMessages",
                      "  {",
                      "  }",
                      "}",
                      "",
                  });
    return lines;
}

/// Both groups around the fight's centre, facing each other.
Placing drawPlacing(float x, float y, float z, zel::Random& random) {
    const float spread = random.getFloat(LeastSpread, MostSpread);
    const float heightA = random.getFloat(LeastHeightDraw, MostHeightDraw);
    const float heightG = random.getFloat(LeastHeightDraw, MostHeightDraw);
    const float headingA = random.getFloat(-MostHeadingOff, MostHeadingOff);
    const float headingG = random.getFloat(-MostHeadingOff, MostHeadingOff);
    return {{x, y + GroupHeight + heightA, z - spread, headingA + Eastward},
            {x, y + GroupHeight + heightG, z + spread, headingG + Westward}};
}

/// The skin if the simulator can hold its name, otherwise none.
zel::String usableSkin(const zel::String& skin) {
    if (isMissionSkin(skin.view()))
        return skin;
    logChange("The simulator can't read the skin \"" + skin + "\"; it is left out");
    return {};
}

/// The paint in its quotes: the pilot's own, or else his squadron's, or none.
zel::String skinText(const Database& career, const PlannedPlane& plane) {
    zel::String skin;
    const int32_t file = career.squadron(plane.squadron).squadronFile;
    if (file >= 0)
        skin = usableSkin(career.squadronSkin(
            zel::String(zel::arrayText(career.squadronFile(file).key)), plane.type));
    const zel::String own = usableSkin(career.pilotSkin(plane.pilotFile, plane.type));
    if (!own.empty()) {
        zel::log("INDIVIDUAL SKIN PILOT!!", "MissionGenerator", zel::LogDebug);
        skin = own;
    }
    return skin.empty() ? "\"\"" : quoted(plane.type.toLower() + "\\" + skin);
}

/// The plane at that position of its group, with no index, level or target yet.
EmittedPlane emittedPlane(const Database& career, const PlannedPlane& planned,
                          const GroupPlacing& group, int32_t position) {
    EmittedPlane plane{};
    plane.shownName = nameOf(planned);
    plane.pilot = planned.pilot;
    plane.nation = planned.nation;
    plane.type = planned.type;
    plane.skin = skinText(career, planned);
    plane.place = group;
    plane.place.x += Spacing * static_cast<float>(position);
    return plane;
}

} // namespace

std::vector<int32_t> planeLevels(const std::vector<PlannedPlane>& plan) {
    const int32_t wanted = plan.size() >= ManyPlanes ? WantedLevelOfMany : WantedLevel;
    std::vector<int32_t> levels(plan.size(), 0);
    for (int32_t more = 0; plan.size() > 1; ++more) {
        for (size_t i = 1; i < plan.size(); ++i)
            levels[i] = pilotLevel(plan[i].skill, plan[i].shotdowns, plan[i].missions + more);
        if (*std::max_element(levels.begin(), levels.end()) >= wanted)
            break;
    }
    return levels;
}

void emitPlanes(MissionGenerator& generator, const Database& career, int32_t insertLine) {
    const std::vector<PlannedPlane>& plan = generator.plan;
    if (plan.empty())
        return;
    const float areaHeight =
        generator.attackArea >= 0 ? generator.templateObjects[generator.attackArea].y : 0.0F;
    const Placing placing = drawPlacing(generator.locationX + generator.offsetX,
                                        generator.locationY + generator.offsetY + areaHeight,
                                        generator.locationZ + generator.offsetZ, generator.random);
    const std::vector<int32_t> levels = planeLevels(plan);
    int32_t firstAllied = -1; // Index of the first plane of each side
    int32_t firstGerman = -1;
    int32_t position = 0; // in its group
    for (size_t i = 0; i < plan.size(); ++i) {
        const bool allied = isAllied(plan[i].nation);
        const bool continuesGroup = i > 0 && isSameSide(plan[i].nation, plan[i - 1].nation);
        position = continuesGroup ? position + 1 : 0;
        EmittedPlane plane =
            emittedPlane(career, plan[i], allied ? placing.allied : placing.german, position);
        plane.index = generator.maxIndex + 1;
        generator.maxIndex += 2; // one for the plane, one for its entity
        int32_t& first = allied ? firstAllied : firstGerman;
        if (first < 0) {
            first = plane.index;
            generator.attackObjects.push_back(first + 1);
        }
        plane.level = levels[i];
        plane.target = position == 0 ? 0 : first + 1;
        const std::vector<zel::String> text = planeLines(plane);
        generator.lines.lines.insert(generator.lines.lines.begin() + insertLine, text.begin(),
                                     text.end());
    }
}
