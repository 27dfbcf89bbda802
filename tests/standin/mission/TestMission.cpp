#include "tests/standin/mission/TestMission.h"

#include <gtest/gtest.h>

#include "tests/support/Texts.h"

namespace standin {

namespace {

/// A text of the folder, with the values of its {keys}.
std::string text(const char* name, const std::map<std::string, std::string>& values) {
    return filled(fileText(std::string(TEXTS_FOLDER "/") + name), values);
}

/// The lines as the simulator has them.
std::string withReturns(const std::string& text) { return replacedAll(text, "\n", "\r\n"); }

} // namespace

std::string missionText(const std::vector<TestPlane>& planes, bool inAir) {
    std::string blocks;
    std::string leaders;
    int32_t leader[2] = {};
    int32_t members[2] = {};
    for (size_t i = 0; i < planes.size(); ++i) {
        const TestPlane& plane = planes[i];
        const int32_t index = 11 + 2 * static_cast<int32_t>(i);
        const size_t side = plane.country > 499 ? 1 : 0;
        const bool leads = members[side] == 0;
        if (leads) {
            leader[side] = index + 1;
            leaders += (leaders.empty() ? "" : ",") + std::to_string(index + 1);
        }
        blocks += text("Plane.txt", {{"name", plane.name},
                                     {"index", std::to_string(index)},
                                     {"entity", std::to_string(index + 1)},
                                     {"x", std::to_string(216000 + 100 * members[side]++)},
                                     {"y", inAir ? (side == 1 ? "1912.5" : "2043") : "86.5"},
                                     {"z", side == 1 ? "57300" : "54700"},
                                     {"heading", side == 1 ? "271.25" : "92.5"},
                                     {"type", plane.type},
                                     {"country", std::to_string(plane.country)},
                                     {"level", std::to_string(plane.level)},
                                     {"inair", inAir ? "1" : "0"},
                                     {"leader", leads ? "" : std::to_string(leader[side])}});
    }
    return withReturns(text("Mission.txt", {{"planes", blocks}, {"leaders", leaders}}));
}

std::vector<TestPlane> sixPlanes() {
    return {{"Erich Sommer/7", 501, "fokkerdr1", 0},
            {"Kurt Brandt", 501, "fokkerdr1", 2},
            {"Maximilian Freiherr von und zu Hohenfels/12", 501, "fokkerdr1", 1},
            {"Ernest M. Hall/11", 102, "sopcamel", 3},
            {"Albert Reed", 102, "sopcamel", 1},
            {"John  O'Neil", 102, "sopcamel", 2}};
}

std::string smallMission() {
    return missionText({{"Erich Sommer", 501, "fokkerdr1", 0}, {"Albert Reed", 102, "se5a", 2}});
}

std::string objectiveText(int32_t index) {
    return withReturns(text("Objective.txt", {{"index", std::to_string(index)}}));
}

Mission readMission(const std::string& text) {
    Mission mission;
    tools::Finding finding;
    EXPECT_TRUE(readMissionText(text, mission, finding)) << finding.line << ": " << finding.message;
    return mission;
}

std::string replaced(const std::string& text, const std::string& from, const std::string& to,
                     const std::string& after) {
    const size_t start = text.find(after);
    const size_t place = start == text.npos ? start : text.find(from, start);
    if (place == text.npos) {
        ADD_FAILURE() << "'" << from << "' after '" << after << "' isn't in the mission";
        return text;
    }
    std::string result = text;
    return result.replace(place, from.size(), to);
}

} // namespace standin
