#include "standin/mission/MissionLinks.h"

#include <algorithm>
#include <map>

namespace standin {

namespace {

std::string number(int32_t value) { return std::to_string(value); }

class Resolver {
public:
    Resolver(const std::vector<Node>& nodes, Mission& mission, tools::Finding& finding)
        : nodes(nodes), mission(mission), finding(finding) {}

    bool resolve() {
        return collect() && checkPairs() && checkLists() && findLeaders() && giveOrders();
    }

private:
    bool refuse(int32_t line, std::string_view reason) {
        finding = {"", line, reason};
        return false;
    }
    const Node* find(int32_t index) const {
        const auto found = byIndex.find(index);
        return found == byIndex.end() ? nullptr : found->second;
    }
    /// Index in Mission::planes of the entity's plane; -1 if it isn't a plane's entity.
    int32_t planeOf(int32_t entity) const;

    bool collect();
    bool checkPairs();
    bool checkLists();
    bool checkList(const Node& node, const std::vector<int32_t>& list, int32_t line, bool objects);
    bool findLeaders();
    bool giveOrders();
    bool commandPlanes();
    std::map<int32_t, double> reachedTimes() const;

    const std::vector<Node>& nodes;
    Mission& mission;
    tools::Finding& finding;
    std::map<int32_t, const Node*> byIndex;
};

int32_t Resolver::planeOf(int32_t entity) const {
    const auto found = std::find_if(mission.planes.begin(), mission.planes.end(),
                                    [&](const Plane& plane) { return plane.entity == entity; });
    return found == mission.planes.end() ? -1
                                         : static_cast<int32_t>(found - mission.planes.begin());
}

bool Resolver::collect() {
    for (const Node& node : nodes)
        if (const auto [place, added] = byIndex.emplace(node.index, &node); !added)
            return refuse(node.line, "Index " + number(node.index) + " is that of the " +
                                         place->second->block + " of line " +
                                         number(place->second->line) + " too");
    return true;
}

/// An object's LinkTrId names its entity, whose MisObjID names the object.
bool Resolver::checkPairs() {
    for (const Node& node : nodes) {
        if (node.isEntity()) {
            const Node* object = find(node.misObjId);
            if (object == nullptr || object->linkTrId != node.index)
                return refuse(node.line, "MisObjID " + number(node.misObjId) +
                                             " names no object whose LinkTrId is " +
                                             number(node.index));
        } else if (node.linkTrId != 0) {
            const Node* entity = find(node.linkTrId);
            if (entity == nullptr || !entity->isEntity() || entity->misObjId != node.index)
                return refuse(node.line, "LinkTrId " + number(node.linkTrId) +
                                             " names no entity whose MisObjID is " +
                                             number(node.index));
        } else if (node.block == "Plane") {
            return refuse(node.line, "LinkTrId is 0: a plane without an entity takes no orders");
        }
    }
    return true;
}

bool Resolver::checkLists() {
    for (const Node& node : nodes) {
        if (!checkList(node, node.targets, node.targetsLine, false) ||
            !checkList(node, node.objects, node.objectsLine, true) ||
            !checkList(node, node.events, node.line, false))
            return false;
    }
    return true;
}

bool Resolver::checkList(const Node& node, const std::vector<int32_t>& list, int32_t line,
                         bool objects) {
    const std::string which = objects ? "Objects" : "Targets";
    for (const int32_t index : list) {
        const Node* named = find(index);
        if (named == nullptr)
            return refuse(line, which + " of " + node.block + " names " + number(index) +
                                    ", which is no Index of this mission");
        if (!named->isLogic())
            return refuse(line, which + " of " + node.block + " names the " + named->block + " " +
                                    number(index) + " itself and not its entity");
        if (objects && !named->isEntity())
            return refuse(line, "Objects of " + node.block + " names the " + named->block + " " +
                                    number(index) + ", which is not an entity");
    }
    return true;
}

/// A wingman's entity has his leader's in its Targets; the leader's own has none.
bool Resolver::findLeaders() {
    std::vector<Plane>& planes = mission.planes;
    for (size_t i = 0; i < planes.size(); ++i) {
        const Node* entity = find(planes[i].entity);
        planes[i].leader = static_cast<int32_t>(i);
        if (entity->targets.empty())
            continue;
        const int32_t leader = planeOf(entity->targets.front());
        if (entity->targets.size() > 1 || leader < 0 || leader == static_cast<int32_t>(i))
            return refuse(entity->targetsLine,
                          "Targets of a plane's entity names its leader's entity and nothing else");
        if (planes[leader].coalition != planes[i].coalition)
            return refuse(entity->targetsLine, "the leader is an enemy");
        if (!find(planes[leader].entity)->targets.empty())
            return refuse(entity->targetsLine, "the leader follows a leader himself");
        planes[i].leader = leader;
    }
    return true;
}

/// Seconds from the start until each logic block is triggered; those never reached are left out.
std::map<int32_t, double> Resolver::reachedTimes() const {
    std::map<int32_t, double> times;
    std::vector<int32_t> changed;
    for (const Node& node : nodes)
        if (node.block == "MCU_TR_MissionBegin" && node.fires) {
            times[node.index] = 0;
            changed.push_back(node.index);
        }
    for (size_t next = 0; next < changed.size(); ++next) {
        const Node& node = *find(changed[next]);
        if (!node.fires || node.isEntity())
            continue;
        const double time = times[node.index] + node.seconds;
        for (const int32_t target : node.targets) {
            const auto [place, first] = times.emplace(target, time);
            if (!first && place->second <= time)
                continue;
            place->second = time;
            changed.push_back(target);
        }
    }
    return times;
}

bool Resolver::giveOrders() {
    const std::map<int32_t, double> times = reachedTimes();
    const auto timeOf = [&](int32_t index) {
        const auto found = times.find(index);
        return found == times.end() || !find(index)->fires ? -1 : found->second;
    };
    if (mission.areas.empty())
        return refuse(nodes.front().line, "the mission has no MCU_CMD_AttackArea: nobody attacks");
    for (AttackArea& area : mission.areas) {
        area.delay = timeOf(area.index);
        if (area.delay < 0)
            return refuse(area.line, "no chain of MCU_TR_MissionBegin and timers reaches this "
                                     "attack area: nobody attacks");
    }
    for (Objective& objective : mission.objectives)
        objective.delay = timeOf(objective.index);
    return commandPlanes();
}

/// An order to a leader holds for his flight.
bool Resolver::commandPlanes() {
    for (size_t i = 0; i < mission.areas.size(); ++i)
        for (const int32_t entity : mission.areas[i].objects) {
            const int32_t plane = planeOf(entity);
            if (plane < 0)
                return refuse(mission.areas[i].line, "Objects of the attack area names " +
                                                         number(entity) +
                                                         ", which is not a plane's entity");
            for (Plane& follower : mission.planes)
                if (follower.leader == plane && follower.area < 0)
                    follower.area = static_cast<int32_t>(i);
            if (mission.planes[plane].area < 0)
                mission.planes[plane].area = static_cast<int32_t>(i);
        }
    for (const Plane& plane : mission.planes) {
        if (plane.area < 0)
            continue;
        const AttackArea& area = mission.areas[plane.area];
        const double away = groundDistance(plane.position, area.position);
        if (away > area.radius)
            return refuse(plane.line, "this plane starts " + number(static_cast<int32_t>(away)) +
                                          " m from the centre of its attack area, outside of it");
    }
    return true;
}

} // namespace

bool resolveLinks(const std::vector<Node>& nodes, Mission& mission, tools::Finding& finding) {
    return Resolver(nodes, mission, finding).resolve();
}

} // namespace standin
