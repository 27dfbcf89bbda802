#include "standin/mission/MissionReader.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "engine/core/String.h"
#include "standin/mission/AircraftTypes.h"
#include "standin/mission/MissionKeys.h"
#include "standin/mission/MissionNodes.h"
#include "standin/mission/MissionValues.h"

namespace standin {

namespace {

constexpr std::string_view Seasons[] = {"su", "wi", "au", "sp"};
// The ground of the front reaches some hundred metres; nobody starts a flight among the trees.
constexpr double LowestStart = 200;
constexpr size_t MostPlanes = 64;   // a fight takes the square of their number
constexpr double OneSpot = 5;       // metres: wings are wider
constexpr double MapEdge = 1000000; // metres; the simulator's largest map has not half of it

Vector positionOf(const Block& block) {
    return {numberOf(block, "XPos"), numberOf(block, "YPos"), numberOf(block, "ZPos")};
}

/// Lowered, with "/" between folders.
std::string plainPath(std::string_view path) {
    std::string result(path);
    for (char& character : result)
        character = character == '\\' ? '/' : zel::lower(character);
    return result;
}

std::string folderOf(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

class Reader {
public:
    Reader(Mission& mission, tools::Finding& finding) : mission(mission), finding(finding) {}

    bool read(std::string_view text);

private:
    bool refuse(int32_t line, std::string reason) {
        finding = {"", line, reason};
        return false;
    }
    bool checkObject(const Block& block);
    bool readOptions(const Block& block);
    bool checkLandscape(const Block& block);
    bool checkRowsOnly(const Block& block);
    bool readWind(const Block& block);
    bool readCountries(const Block& block);
    bool readObjects(const std::vector<Block>& blocks);
    bool readObject(const Block& block);
    bool readPlane(const Block& block);
    bool readAircraft(const Block& block, Plane& plane);
    bool readAttackArea(const Block& block);
    void readObjective(const Block& block);
    bool checkPlanes();
    bool checkSpots();

    Mission& mission;
    tools::Finding& finding;
    std::vector<Node> nodes;
};

bool Reader::read(std::string_view text) {
    mission = Mission();
    std::vector<Block> blocks;
    if (!parseMissionText(text, blocks, finding))
        return false;
    if (blocks.empty())
        return refuse(1, "the mission holds no block");
    if (blocks.front().name != "Options")
        return refuse(blocks.front().line, "the first block is not Options");
    if (!readOptions(blocks.front()))
        return false;
    blocks.erase(blocks.begin());
    return readObjects(blocks) && checkPlanes() && resolveLinks(nodes, mission, finding);
}

bool Reader::readOptions(const Block& block) {
    if (!checkBlock(block, finding) || !checkLandscape(block) || !readWind(block) ||
        !readCountries(block))
        return false;
    int32_t parts[3] = {};
    parseTime(block.find("Time")->value, parts);
    mission.hour = parts[0];
    mission.minute = parts[1];
    mission.second = parts[2];
    parseDate(block.find("Date")->value, parts);
    mission.day = parts[0];
    mission.month = parts[1];
    mission.year = parts[2];
    mission.missionType = wholeOf(block, "MissionType");
    return mission.missionType == 0 ||
           refuse(lineOf(block, "MissionType"), "MissionType is not 0, a single-player mission");
}

bool Reader::checkLandscape(const Block& block) {
    const std::string folder = folderOf(plainPath(textOf(block, "HMap")));
    if (folder.empty())
        return refuse(lineOf(block, "HMap"), "HMap names no folder of a landscape");
    if (folderOf(plainPath(textOf(block, "Textures"))) != folder)
        return refuse(lineOf(block, "Textures"), "Textures and HMap are of two landscapes");
    if (plainPath(textOf(block, "Forests")).rfind(folder, 0) != 0)
        return refuse(lineOf(block, "Forests"), "Forests and HMap are of two landscapes");
    const std::string season = textOf(block, "SeasonPrefix");
    return std::find(std::begin(Seasons), std::end(Seasons), season) != std::end(Seasons) ||
           refuse(lineOf(block, "SeasonPrefix"), "SeasonPrefix \"" + season + "\" is no season");
}

bool Reader::checkRowsOnly(const Block& block) {
    if (!block.entries.empty())
        return refuse(block.entries.front().line, block.name + " holds rows, not keys");
    return block.children.empty() ||
           refuse(block.children.front().line, block.name + " holds rows, not blocks");
}

/// Rows height : direction : speed, rising.
bool Reader::readWind(const Block& block) {
    const Block* layers = block.child("WindLayers");
    if (layers == nullptr)
        return refuse(block.line, "Options without WindLayers");
    if (layers->rows.empty())
        return refuse(layers->line, "WindLayers without a row");
    if (!checkRowsOnly(*layers))
        return false;
    double below = -1;
    for (const Row& row : layers->rows) {
        double numbers[3] = {};
        for (size_t i = 0; i < row.values.size(); ++i)
            if (row.separator != ':' || row.values.size() != 3 ||
                !parseNumber(row.values[i], numbers[i]))
                return refuse(row.line, "a wind layer is 'height : direction : speed;'");
        if (numbers[0] <= below)
            return refuse(row.line, "the heights of the wind layers don't rise");
        below = numbers[0];
    }
    return true;
}

bool Reader::readCountries(const Block& block) {
    const Block* countries = block.child("Countries");
    if (countries == nullptr)
        return refuse(block.line, "Options without Countries");
    if (!checkRowsOnly(*countries))
        return false;
    for (const Row& row : countries->rows) {
        Country country;
        if (row.separator != ':' || row.values.size() != 2 ||
            !parseWhole(row.values[0], country.code) ||
            !parseWhole(row.values[1], country.coalition) || country.coalition < 0)
            return refuse(row.line, "a row of Countries is 'country : coalition;'");
        if (mission.coalitionOf(country.code) >= 0)
            return refuse(row.line, "country " + row.values[0] + " stands twice in Countries");
        mission.countries.push_back(country);
    }
    return true;
}

/// The blocks of the file, or those of a group, which count like any others.
bool Reader::readObjects(const std::vector<Block>& blocks) {
    for (const Block& block : blocks) {
        if (block.name == "Options")
            return refuse(block.line, "a second block Options");
        if (!checkObject(block) || !readObject(block))
            return false;
        if (block.name == "Group" && !readObjects(block.children))
            return false;
    }
    return true;
}

bool Reader::checkObject(const Block& block) {
    if (!checkBlock(block, finding))
        return false;
    if (wholeOf(block, "Index") < 1)
        return refuse(lineOf(block, "Index"), "Index is not above 0");
    if (numberOf(block, "YPos") < 0)
        return refuse(lineOf(block, "YPos"), "YPos lies below the ground");
    for (const char* key : {"XPos", "YPos", "ZPos"})
        if (std::abs(numberOf(block, key)) > MapEdge)
            return refuse(lineOf(block, key), std::string(key) + " lies outside of every map");
    return true;
}

bool Reader::readObject(const Block& block) {
    Node node;
    node.block = block.name;
    node.line = block.line;
    node.index = wholeOf(block, "Index");
    node.linkTrId = wholeOf(block, "LinkTrId");
    node.misObjId = node.isEntity() ? wholeOf(block, "MisObjID") : 0;
    node.targets = listOf(block, "Targets");
    node.targetsLine = lineOf(block, "Targets");
    node.objects = listOf(block, "Objects");
    node.objectsLine = lineOf(block, "Objects");
    for (const Block& list : block.children)
        for (const Block& event : list.children)
            if (event.find("TarId") != nullptr)
                node.events.push_back(wholeOf(event, "TarId"));
    if (block.name == "MCU_Timer") {
        node.seconds = numberOf(block, "Time");
        node.fires = wholeOf(block, "Random") > 0;
        if (node.seconds < 0)
            return refuse(lineOf(block, "Time"), "a timer can't wait for less than no time");
    } else if (const Entry* enabled = block.find("Enabled")) {
        node.fires = enabled->value != "0";
    }
    nodes.push_back(std::move(node));
    if (block.name == "Plane")
        return readPlane(block);
    if (block.name == "MCU_CMD_AttackArea")
        return readAttackArea(block);
    if (block.name == "MCU_TR_MissionObjective")
        readObjective(block);
    return true;
}

bool Reader::readPlane(const Block& block) {
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
        return refuse(at("Name"), "a plane without a name can't be told from the others");
    if (plane.coalition < 0)
        return refuse(at("Country"),
                      "Countries has no row for country " + std::to_string(plane.country));
    if (plane.level < 0 || plane.level > 4)
        return refuse(at("AILevel"), "AILevel lies outside of 0 to 4");
    if (plane.fuel < 0 || plane.fuel > 1)
        return refuse(at("Fuel"), "Fuel lies outside of 0 to 1");
    if (std::abs(plane.heading) > 360)
        return refuse(at("YOri"), "YOri is no heading");
    if (plane.inAir && plane.position.y < LowestStart)
        return refuse(at("YPos"), "a plane that starts in the air below " +
                                      std::to_string(static_cast<int32_t>(LowestStart)) +
                                      " m starts below the ground of the front's hills");
    if (!readAircraft(block, plane))
        return false;
    mission.planes.push_back(std::move(plane));
    return true;
}

/// Script, model and skin, which all carry the type's id.
bool Reader::readAircraft(const Block& block, Plane& plane) {
    constexpr std::string_view ScriptFolder = "luascripts/worldobjects/";
    constexpr std::string_view ScriptEnd = ".txt";
    const std::string script = plainPath(textOf(block, "Script"));
    const int32_t line = lineOf(block, "Script");
    if (script.size() <= ScriptFolder.size() + ScriptEnd.size() ||
        script.rfind(ScriptFolder, 0) != 0 ||
        script.substr(script.size() - ScriptEnd.size()) != ScriptEnd)
        return refuse(line, "Script is not \"LuaScripts\\WorldObjects\\TYPE.txt\"");
    const std::string id =
        script.substr(ScriptFolder.size(), script.size() - ScriptFolder.size() - ScriptEnd.size());
    plane.aircraft = findAircraft(id);
    if (plane.aircraft < 0)
        return refuse(line, "unknown aircraft '" + id + "'");
    std::string model = "graphics/planes/";
    model.append(id).append("/").append(id).append(".mgm");
    if (plainPath(textOf(block, "Model")) != model)
        return refuse(lineOf(block, "Model"), "Model is not that of Script, " + id);
    plane.skin = textOf(block, "Skin");
    const std::string skin = plainPath(plane.skin);
    if (!skin.empty() && (skin.rfind(id + "/", 0) != 0 || skin.size() <= id.size() + 5 ||
                          skin.substr(skin.size() - 4) != ".dds"))
        return refuse(lineOf(block, "Skin"),
                      "Skin is not a .dds file in the folder of Script's " + id);
    return true;
}

bool Reader::readAttackArea(const Block& block) {
    AttackArea area;
    area.index = wholeOf(block, "Index");
    area.line = block.line;
    area.position = positionOf(block);
    area.radius = numberOf(block, "AttackArea");
    area.seconds = numberOf(block, "Time");
    area.objects = listOf(block, "Objects");
    if (area.objects.empty())
        return refuse(lineOf(block, "Objects"),
                      "Objects of the attack area is empty: nobody is ordered to attack");
    if (block.find("AttackAir")->value != "1")
        return refuse(lineOf(block, "AttackAir"), "AttackAir is 0: nobody would attack planes");
    if (area.radius <= 0)
        return refuse(lineOf(block, "AttackArea"), "the radius of the attack area is not above 0");
    if (area.seconds <= 0)
        return refuse(lineOf(block, "Time"), "the order to attack lasts for no time");
    const int32_t priority = wholeOf(block, "Priority");
    if (priority < 0 || priority > 2)
        return refuse(lineOf(block, "Priority"), "Priority lies outside of 0 to 2");
    mission.areas.push_back(std::move(area));
    return true;
}

void Reader::readObjective(const Block& block) {
    Objective objective;
    objective.index = wholeOf(block, "Index");
    objective.position = positionOf(block);
    objective.coalition = wholeOf(block, "Coalition");
    objective.taskType = wholeOf(block, "TaskType");
    objective.success = wholeOf(block, "Success");
    objective.iconType = wholeOf(block, "IconType");
    mission.objectives.push_back(objective);
}

/// What concerns the planes together: one human, two hostile coalitions, a place for each.
bool Reader::checkPlanes() {
    if (mission.planes.empty())
        return refuse(1, "the mission holds no plane");
    if (mission.planes.size() > MostPlanes)
        return refuse(mission.planes[MostPlanes].line,
                      "more than " + std::to_string(MostPlanes) + " planes in one mission");
    int32_t coalition = 0;
    bool hostile = false;
    for (size_t i = 0; i < mission.planes.size(); ++i) {
        const Plane& plane = mission.planes[i];
        if (plane.coalition == 0)
            return refuse(plane.line, "country " + std::to_string(plane.country) +
                                          " of this plane is neutral and fights nobody");
        hostile = hostile || (coalition != 0 && plane.coalition != coalition);
        coalition = plane.coalition;
        if (plane.level != 0)
            continue;
        if (mission.human >= 0)
            return refuse(plane.line, "a second plane with AILevel 0, the player's");
        mission.human = static_cast<int32_t>(i);
    }
    if (mission.human < 0)
        return refuse(mission.planes.front().line, "no plane has AILevel 0, the player's");
    if (!hostile)
        return refuse(mission.planes.front().line, "all planes are of one coalition");
    return checkSpots();
}

bool Reader::checkSpots() {
    for (const Plane& plane : mission.planes)
        for (const Plane* other = mission.planes.data(); other != &plane; ++other)
            if (distance(plane.position, other->position) < OneSpot)
                return refuse(plane.line, "this plane stands on the spot of the one of line " +
                                              std::to_string(other->line));
    return true;
}

} // namespace

int32_t Mission::coalitionOf(int32_t country) const {
    const auto found = std::find_if(countries.begin(), countries.end(),
                                    [&](const Country& row) { return row.code == country; });
    return found == countries.end() ? -1 : found->coalition;
}

bool readMissionText(std::string_view text, Mission& mission, tools::Finding& finding) {
    return Reader(mission, finding).read(text);
}

} // namespace standin
