#include "standin/mission/MissionReader.h"

#include <algorithm>
#include <sstream>

#include <gtest/gtest.h>

#include "engine/core/String.h"
#include "tests/standin/mission/TestMission.h"
#include "tests/support/Texts.h"

namespace standin {

namespace {

/// The fault as "line: reason"; empty if the text is accepted.
std::string faultOf(const std::string& text) {
    Mission mission;
    tools::Finding finding;
    if (readMissionText(text, mission, finding))
        return {};
    return std::to_string(finding.line) + ": " + finding.message;
}

/// An area of influence as the simulator's editor writes it, before the last line.
constexpr const char* AreaText = "MCU_TR_InfluenceArea\r\n{\r\n  Index = 90;\r\n  Name = \"A\";\r\n"
                                 "  Boundary\r\n  {\r\n    264998, 38650.7;\r\n"
                                 "    263000.5, -39000;\r\n  }\r\n}\r\n# end of file";

/// A row of Faults.txt, which says what it means.
struct Edit {
    std::string from, reason, after, at;
};

void expectRefused(const Edit& edit, const std::string& to) {
    const std::string text = replaced(smallMission(), edit.from, to, edit.after);
    const std::string wanted = edit.at.empty() ? edit.from : edit.at;
    // The line of the edit is the same before it and after.
    const std::string searched = edit.at.empty() ? smallMission() : text;
    size_t place = std::min(searched.find(wanted, searched.find(edit.after)), searched.size());
    place = searched.find_first_not_of("\r\n", place);
    const auto end = searched.begin() + static_cast<std::ptrdiff_t>(place);
    const std::string line = std::to_string(1 + std::count(searched.begin(), end, '\n'));
    const std::string fault = faultOf(text);
    EXPECT_TRUE(fault.find(edit.reason) != fault.npos && fault.substr(0, fault.find(':')) == line)
        << "'" << edit.from << "' to '" << to << "' in line " << line << " gave '" << fault << "'";
}

} // namespace

TEST(MissionReader, ReadsPlanesLeadersAndOrders) {
    const Mission mission = readMission(missionText(sixPlanes()));
    ASSERT_EQ(mission.planes.size(), 6U);
    const Plane& wingMan = mission.planes[4]; // MissionLogTest has names, types, date and countries
    EXPECT_EQ(wingMan.leader, 3);
    EXPECT_EQ(wingMan.area, 0) << "the order to his leader is his";
    EXPECT_EQ(wingMan.level, 1);
    EXPECT_DOUBLE_EQ(wingMan.heading, 92.5);
    ASSERT_EQ(mission.areas.size(), 1U);
    EXPECT_DOUBLE_EQ(mission.areas[0].position.y, 1800);
}

TEST(MissionReader, TakesWhatTheSimulatorTakes) {
    for (const auto& [from, to, what] :
         {std::tuple{"  LCDesc = 1;", "\r\n  LCDesc = 1;", "an empty line inside a block"},
          {"graphics\\landscape\\height", "GRAPHICS/Landscape/height", "paths in any case"},
          {"  OnMessages\r\n  {\r\n  }\r\n", "", "no messages"},
          {"Erich Sommer", "Erich (J)  O'Sommer-Katzenellenbogen/12", "only the log cuts names"},
          {"# end of file\r\n", "# end of file", "no line end after the last line"},
          {"# end of file", AreaText, "the border of an area"},
          {"Skin = \"fokkerdr1\\some_skin.dds\"", "Skin = \"\"", "no paint"},
          {"Targets = [2]", "Targets = [3]", "begin goes straight to the command"}})
        EXPECT_EQ(faultOf(replaced(smallMission(), from, to)), "") << what;
}

TEST(MissionReader, ChecksBorders) {
    const std::string text = replaced(smallMission(), "# end of file", AreaText);
    for (const char* row : {"1, 2, 3;", "1 : 2;", "1, x;", "1, ;", "x = 1;"})
        EXPECT_NE(faultOf(replaced(text, "264998, 38650.7;", row)).find(" Boundary"),
                  std::string::npos)
            << row;
}

TEST(MissionReader, LooksIntoGroupsAndNamelessBlocks) {
    const std::string extra = "Group\r\n{\r\n  Index = 70;\r\n  Name = \"G\";\r\n" +
                              objectiveText(71) + "}\r\n# end of file";
    const std::string text = replaced(smallMission(), "# end of file", extra);
    const Mission unreached = readMission(text);
    ASSERT_EQ(unreached.objectives.size(), 1U);
    EXPECT_LT(unreached.objectives[0].delay, 0);
    const Mission reached = readMission(replaced(text, "Targets = [3]", "Targets = [3,71]"));
    EXPECT_DOUBLE_EQ(reached.objectives[0].delay, 3);
    EXPECT_NE(faultOf(replaced(text, "Index = 71", "Index = 14")).find("too"), std::string::npos)
        << "indices are unique across groups";
}

TEST(MissionReader, RefusesWhatTheSimulatorWouldNotLoad) {
    ASSERT_EQ(faultOf(smallMission()), "");
    std::istringstream rows(fileText(TEXTS_FOLDER "/Faults.txt"));
    int32_t count = 0;
    for (std::string row; std::getline(rows, row);) {
        std::vector<zel::String> cells;
        std::vector<zel::String> edits;
        zel::String(replacedAll(replacedAll(row, "~", "\r\n"), "`", "\r")).split("|", cells);
        if (cells.size() < 3) // a heading
            continue;
        cells.resize(5);
        cells[1].split("^", edits);
        for (const zel::String& to : edits)
            expectRefused({cells[0].c_str(), cells[2].c_str(), cells[3].c_str(), cells[4].c_str()},
                          to.c_str());
        ++count;
    }
    EXPECT_EQ(count, 90);
    EXPECT_EQ(faultOf(""), "1: the file is empty");
    std::string nested = "# Mission File Version = 1.0;\r\n";
    for (int32_t i = 0; i < 1000; ++i)
        nested += "A\r\n{\r\n";
    EXPECT_NE(faultOf(nested).find("too deep"), std::string::npos);
}

TEST(MissionReader, NeedsEveryOptionButThePlayersConfiguration) {
    const std::string whole = smallMission();
    const size_t layers = whole.find("  WindLayers");
    for (size_t start = whole.find("  LCName"); start < layers;) {
        const size_t end = whole.find('\n', start) + 1;
        const std::string key = whole.substr(start + 2, whole.find(" = ", start) - start - 2);
        EXPECT_EQ(faultOf(std::string(whole).erase(start, end - start)),
                  key == "PlayerConfig" ? "" : "3: Options without " + key);
        start = end;
    }
}

// All but the end of its last line.
TEST(MissionReader, RefusesAMissionCutAtAnyLength) {
    const std::string text = missionText(sixPlanes());
    for (size_t length = 0; length < text.size(); ++length)
        ASSERT_EQ(faultOf(text.substr(0, length)).empty(), length == text.size() - 2)
            << "cut after " << length << " bytes";
}

TEST(MissionReader, RefusesMorePlanesThanItCanFly) {
    std::vector<TestPlane> planes = sixPlanes();
    while (planes.size() < 64)
        planes.push_back(planes[1 + planes.size() % 5]);
    EXPECT_EQ(faultOf(missionText(planes)), "");
    planes.push_back(planes.back());
    const std::string text = missionText(planes);
    const auto last = text.begin() + static_cast<std::ptrdiff_t>(text.rfind("\nPlane\r") + 1);
    EXPECT_EQ(faultOf(text), std::to_string(1 + std::count(text.begin(), last, '\n')) +
                                 ": more than 64 planes in one mission");
}

} // namespace standin
