#include <algorithm>

#include "fuzz/FuzzFile.h"
#include "standin/mission/MissionReader.h"

namespace {

template <typename List> bool isPlace(int32_t index, const List& list) {
    return index >= 0 && static_cast<size_t>(index) < list.size();
}

void checkMission(const standin::Mission& mission) {
    require(isPlace(mission.human, mission.planes), "the player flies one of the planes");
    require(!mission.areas.empty(), "somebody is ordered to attack");
    for (const standin::Plane& plane : mission.planes) {
        require(isPlace(plane.leader, mission.planes), "a leader is a plane");
        const standin::Plane& leader = mission.planes[plane.leader];
        require(leader.leader == plane.leader, "a leader leads himself");
        require(plane.area == -1 || isPlace(plane.area, mission.areas), "an order is an area");
        require(plane.fuel >= 0 && plane.fuel <= 1, "fuel is a share");
        require(plane.coalition > 0 && plane.coalition == mission.coalitionOf(plane.country),
                "a plane fights for its country's side");
    }
    const auto isEnemy = [&](const standin::Plane& plane) {
        return plane.coalition != mission.planes.front().coalition;
    };
    require(std::any_of(mission.planes.begin(), mission.planes.end(), isEnemy), "two sides fight");
    for (const standin::AttackArea& area : mission.areas)
        require(area.radius > 0 && area.seconds > 0, "an order has an extent and a duration");
}

/// The text with CR LF, so that an editor's seeds and mutations of them reach the reader.
std::string withLineEnds(std::string_view text) {
    std::string result;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r'))
            result += '\r';
        result += text[i];
    }
    return result;
}

void read(std::string_view text) {
    standin::Mission mission;
    tools::Finding finding;
    if (standin::readMissionText(text, mission, finding)) {
        checkMission(mission);
        return;
    }
    require(!finding.message.empty(), "a refusal has a reason");
    const auto lines = std::count(text.begin(), text.end(), '\n') + 1;
    require(finding.line >= 1 && finding.line <= lines, "and a line of the text");
    require(finding.message.find_first_of("\r\n") == finding.message.npos, "in one line");
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text = asText(data, size);
    read(text);
    read(withLineEnds(text));
    return 0;
}
