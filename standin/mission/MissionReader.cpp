#include "standin/mission/MissionReader.h"

#include <algorithm>
#include <cmath>

#include "standin/mission/MissionKeys.h"
#include "standin/mission/MissionLinks.h"
#include "standin/mission/MissionValues.h"
#include "standin/mission/OptionsReader.h"
#include "standin/mission/PlaneReader.h"

namespace standin {

namespace {

constexpr size_t MostPlanes = 64;   // a fight's time grows with the square of their number
constexpr double OneSpot = 5;       // metres: wings are wider
constexpr double MapEdge = 1000000; // metres; the simulator's largest map is less than half as wide

class MissionFileReader {
public:
    MissionFileReader(Mission& mission, tools::Finding& finding)
        : mission(mission), finding(finding) {}

    bool read(std::string_view text);

private:
    bool refuse(int32_t line, std::string_view reason) {
        return standin::refuse(finding, line, reason);
    }
    bool checkObject(const MissionBlock& block);
    bool readObjects(const std::vector<MissionBlock>& blocks);
    bool readObject(const MissionBlock& block);
    bool readAttackArea(const MissionBlock& block);
    void readObjective(const MissionBlock& block);
    bool checkPlanes();
    bool checkSpots();

    Mission& mission;
    tools::Finding& finding;
    std::vector<Node> nodes;
};

bool MissionFileReader::read(std::string_view text) {
    mission = Mission();
    std::vector<MissionBlock> blocks;
    if (!parseMissionText(text, blocks, finding))
        return false;
    if (blocks.empty())
        return refuse(1, "the mission holds no block");
    if (blocks.front().name != "Options")
        return refuse(blocks.front().line, "the first block is not Options");
    if (!readOptions(blocks.front(), mission, finding))
        return false;
    blocks.erase(blocks.begin());
    return readObjects(blocks) && checkPlanes() && resolveLinks(nodes, mission, finding);
}

/// The blocks of the file, including those inside groups.
bool MissionFileReader::readObjects(const std::vector<MissionBlock>& blocks) {
    for (const MissionBlock& block : blocks) {
        if (block.name == "Options")
            return refuse(block.line, "a second block Options");
        if (!checkObject(block) || !readObject(block))
            return false;
        if (block.name == "Group" && !readObjects(block.children))
            return false;
    }
    return true;
}

bool MissionFileReader::checkObject(const MissionBlock& block) {
    if (!checkBlock(block, finding))
        return false;
    if (wholeOf(block, "Index") < 1)
        return refuse(lineOf(block, "Index"), "Index is not above 0");
    if (numberOf(block, "YPos") < 0)
        return refuse(lineOf(block, "YPos"), "YPos is below the ground");
    for (const char* key : {"XPos", "YPos", "ZPos"})
        if (std::abs(numberOf(block, key)) > MapEdge)
            return refuse(lineOf(block, key), std::string(key) + " is outside every map");
    return true;
}

bool MissionFileReader::readObject(const MissionBlock& block) {
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
    for (const MissionBlock& list : block.children)
        for (const MissionBlock& event : list.children)
            if (event.find("TarId") != nullptr)
                node.events.push_back(wholeOf(event, "TarId"));
    if (block.name == "MCU_Timer") {
        node.seconds = numberOf(block, "Time");
        node.fires = wholeOf(block, "Random") > 0;
        if (node.seconds < 0)
            return refuse(lineOf(block, "Time"), "a timer's Time is negative");
    } else if (const MissionEntry* enabled = block.find("Enabled")) {
        node.fires = enabled->value != "0";
    }
    nodes.push_back(std::move(node));
    if (block.name == "Plane")
        return readPlane(block, mission, finding);
    if (block.name == "MCU_CMD_AttackArea")
        return readAttackArea(block);
    if (block.name == "MCU_TR_MissionObjective")
        readObjective(block);
    return true;
}

bool MissionFileReader::readAttackArea(const MissionBlock& block) {
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
        return refuse(lineOf(block, "Time"), "the time of the attack order is not above 0");
    const int32_t priority = wholeOf(block, "Priority");
    if (priority < 0 || priority > 2)
        return refuse(lineOf(block, "Priority"), "Priority is outside 0 to 2");
    mission.areas.push_back(std::move(area));
    return true;
}

void MissionFileReader::readObjective(const MissionBlock& block) {
    Objective objective;
    objective.index = wholeOf(block, "Index");
    objective.position = positionOf(block);
    objective.coalition = wholeOf(block, "Coalition");
    objective.taskType = wholeOf(block, "TaskType");
    objective.success = wholeOf(block, "Success");
    objective.iconType = wholeOf(block, "IconType");
    mission.objectives.push_back(objective);
}

/// Checks the planes together: one human, two hostile coalitions, a separate position for each.
bool MissionFileReader::checkPlanes() {
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

bool MissionFileReader::checkSpots() {
    for (const Plane& plane : mission.planes)
        for (const Plane* other = mission.planes.data(); other != &plane; ++other)
            if (distance(plane.position, other->position) < OneSpot)
                return refuse(plane.line, "this plane is on the spot of the one in line " +
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
    return MissionFileReader(mission, finding).read(text);
}

} // namespace standin
