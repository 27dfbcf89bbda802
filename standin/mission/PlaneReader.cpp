#include "standin/mission/PlaneReader.h"

#include <cmath>

#include "standin/mission/AircraftTypes.h"
#include "standin/mission/MissionValues.h"

namespace standin {

namespace {

// The ground at the front rises to some hundred metres; no flight starts among the trees.
constexpr double LowestStart = 200;

/// Script, model and skin, which all contain the type's id.
bool readAircraft(const MissionBlock& block, Plane& plane, tools::Finding& finding) {
    constexpr std::string_view ScriptFolder = "luascripts/worldobjects/";
    constexpr std::string_view ScriptEnd = ".txt";
    const std::string script = plainPath(textOf(block, "Script"));
    const int32_t line = lineOf(block, "Script");
    if (script.size() <= ScriptFolder.size() + ScriptEnd.size() ||
        script.rfind(ScriptFolder, 0) != 0 ||
        script.substr(script.size() - ScriptEnd.size()) != ScriptEnd)
        return refuse(finding, line, "Script is not \"LuaScripts\\WorldObjects\\TYPE.txt\"");
    const std::string id =
        script.substr(ScriptFolder.size(), script.size() - ScriptFolder.size() - ScriptEnd.size());
    plane.aircraft = findAircraft(id);
    if (plane.aircraft < 0)
        return refuse(finding, line, "unknown aircraft '" + id + "'");
    std::string model = "graphics/planes/";
    model.append(id).append("/").append(id).append(".mgm");
    if (plainPath(textOf(block, "Model")) != model)
        return refuse(finding, lineOf(block, "Model"), "Model is not that of Script, " + id);
    plane.skin = textOf(block, "Skin");
    const std::string skin = plainPath(plane.skin);
    if (!skin.empty() && (skin.rfind(id + "/", 0) != 0 || skin.size() <= id.size() + 5 ||
                          skin.substr(skin.size() - 4) != ".dds"))
        return refuse(finding, lineOf(block, "Skin"),
                      "Skin is not a .dds file in the folder of Script's " + id);
    return true;
}

} // namespace

bool readPlane(const MissionBlock& block, Mission& mission, tools::Finding& finding) {
    Plane plane;
    plane.name = textOf(block, "Name");
    plane.index = wholeOf(block, "Index");
    plane.entity = wholeOf(block, "LinkTrId");
    plane.line = block.line;
    plane.position = positionOf(block);
    plane.heading = numberOf(block, "YOri");
    plane.country = wholeOf(block, "Country");
    plane.coalition = mission.coalitionOf(plane.country);
    plane.level = wholeOf(block, "AILevel");
    plane.numberInFormation = wholeOf(block, "NumberInFormation");
    plane.payload = wholeOf(block, "PayloadId");
    plane.fuel = numberOf(block, "Fuel", 1);
    plane.inAir = wholeOf(block, "StartInAir") == 1;
    const auto at = [&](const char* key) { return lineOf(block, key); };
    if (plane.name.empty())
        return refuse(finding, at("Name"), "a plane without a name can't be told from the others");
    if (plane.coalition < 0)
        return refuse(finding, at("Country"),
                      "Countries has no row for country " + std::to_string(plane.country));
    if (plane.level < 0 || plane.level > 4)
        return refuse(finding, at("AILevel"), "AILevel is outside 0 to 4");
    if (plane.fuel < 0 || plane.fuel > 1)
        return refuse(finding, at("Fuel"), "Fuel is outside 0 to 1");
    if (std::abs(plane.heading) > 360)
        return refuse(finding, at("YOri"), "YOri is not a heading");
    if (plane.inAir && plane.position.y < LowestStart)
        return refuse(finding, at("YPos"),
                      "a plane that starts in the air below " +
                          std::to_string(static_cast<int32_t>(LowestStart)) +
                          " m starts below the ground of the front's hills");
    if (!readAircraft(block, plane, finding))
        return false;
    mission.planes.push_back(std::move(plane));
    return true;
}

} // namespace standin
