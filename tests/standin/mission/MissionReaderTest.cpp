#include "standin/mission/MissionReader.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "standin/mission/AircraftTypes.h"
#include "tests/standin/mission/TestMission.h"

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

/// Edits of smallMission(), each of which the simulator wouldn't load, or would fly differently.
struct Edit {
    const char* from;
    std::vector<const char*> to; // each in turn
    const char* reason;          // that the message must hold
    const char* after = "";      // the first `from` after this
    const char* at = ""; // what the faulty line holds, after `after`; empty: the edit itself
};

void expectRefused(const Edit& edit, const char* to) {
    const std::string text = replaced(smallMission(), edit.from, to, edit.after);
    const std::string wanted = *edit.at != 0 ? edit.at : edit.from;
    // The line of the edit is the same before it and after.
    const std::string searched = *edit.at != 0 ? text : smallMission();
    size_t place = std::min(searched.find(wanted, searched.find(edit.after)), searched.size());
    place = searched.find_first_not_of("\r\n", place);
    const auto end = searched.begin() + static_cast<std::ptrdiff_t>(place);
    const std::string line = std::to_string(1 + std::count(searched.begin(), end, '\n'));
    const std::string fault = faultOf(text);
    EXPECT_TRUE(fault.find(edit.reason) != fault.npos && fault.substr(0, fault.find(':')) == line)
        << "'" << edit.from << "' to '" << to << "' in line " << line << " gave '" << fault << "'";
}

// clang-format off
const Edit Faults[] = {
    // The text as such.
    {"# Mission File Version", {"# A file of mine"}, "begins with"},
    {"LCName = 0;", {"LCName = 0"}, "without ';'"},
    {"LCName = 0;\r", {"LCName = 0;"}, "bare line feed", "", "LCName"},
    {"  LCName", {"\tLCName"}, "a tab"},
    {"Erich", {"\xC9rich"}, "ASCII"},
    {"Erich", {"Er;ich", "Er=ich", "Er{ich", "Er}ich", "Er\"ich"}, "in the value"},
    {"Sommer\";", {"Sommer;"}, "no closing quote"},
    {"  Time = 9:7:0;", {"  = 9:7:0;"}, "no key"},
    {"Time = 9:7:0;", {"Time = ;"}, "has no value"},
    {"Time = 9:7:0;", {"9;"}, "nor a row"},
    {"}", {""}, "inside the block 'MCU_CMD_AttackArea'", "Priority", "# end of file"},
    {"}\r\n\r\n# end of file\r\n", {""}, "is never closed", "", "MCU_CMD_AttackArea"},
    {"}", {"}\r\n}"},
     "without an open block", "MisObjID = 11;\r\n  OnMessages\r\n  {\r\n  }", "}\r\n\r\nPlane"},
    {"{", {""}, "no '{' follows", "", "LCName"},
    {"Options", {""}, "without a block name", "", "{"},
    {"\r\n# end of file\r\n", {""}, "ends without", "Priority", "}"},
    {"# end of file", {"# end of file\r\nFlag"}, "after '# end", "", "Flag"},
    {"Plane\r\n", {"Index = 5;\r\nPlane\r\n"}, "outside of every block", "", "Index = 5"},
    {"LCName", {"# LCName"}, "begin with '#'"},

    // The options.
    {"Options", {"Opions"}, "not Options"},
    {"MCU_Timer", {"Options"}, "second block Options"},
    {"  HMap = \"graphics\\landscape\\height.ini\";\r\n", {""}, "without HMap", "", "Options"},
    {"SeasonPrefix = \"su\"", {"SeasonPrefix = \"xx\""}, "no season"},
    {"landscape\\textures", {"landscape_winter\\textures"}, "two landscapes"},
    {"landscape\\trees", {"landscape_winter\\trees"}, "two landscapes"},
    {"21.3.1918", {"31.4.1918", "29.2.1917", "21.13.1918", "\"21.3.1918\""}, "date"},
    {"9:7:0", {"24:7:0", "9:60:0", "9:7"}, "time of day"},
    {"MissionType = 0", {"MissionType = 2"}, "single-player"},
    {"CloudLevel = 1500", {"CloudLevel = 1.5e+03"}, "exponent"},
    {"CloudLevel = 1500", {"CloudLevl = 1500"}, "no key CloudLevl"},
    {"LCDesc = 1", {"LCName = 1"}, "is twice"},
    {"WindLayers", {"WindLayer"}, "no block WindLayer"},
    {"500 :     0 :     0", {"500 :     0", "500, 0, 0"}, "wind layer"},
    {"500 :     0 :     0", {"0 :     0 :     0"}, "don't rise", "", "0 :     0 :     0;\r\n  }"},
    {"    101 : 1;", {"    x = 1;"}, "rows, not keys"},
    {"    101 : 1;", {"    101 : one;", "    101, 1;"}, "'country : coalition;'"},
    {"    101 : 1;", {"    102 : 1;"}, "twice in Countries", "", "102 : 1;\r\n    103"},
    {"    102 : 1;\r\n", {""}, "no row for country 102", "", "Country = 102"},
    {"    501 : 2;\r\n", {"    501 : 1;\r\n"}, "one coalition", "", "Plane"},
    {"    501 : 2;\r\n", {"    501 : 0;\r\n"}, "neutral", "", "Plane"},

    // A plane.
    {"Script = \"LuaScripts\\WorldObjects\\fokkerdr1.txt\"",
     {"Script = \"LuaScripts\\WorldObjects\\fokkerdr2.txt\""}, "unknown aircraft 'fokkerdr2'"},
    {"LuaScripts\\WorldObjects\\fokkerdr1", {"LuaScripts\\fokkerdr1"}, "Script is not"},
    {"fokkerdr1\\fokkerdr1.mgm", {"fokkerdr1\\fokkerd7.mgm"}, "Model is not"},
    {"Skin = \"fokkerdr1", {"Skin = \"fokkerd7"}, "Skin is not"},
    {"AILevel = 2", {"AILevel = 0"},
     "second plane with AILevel 0", "", "Plane\r\n{\r\n  Name = \"Albert"},
    {"AILevel = 0", {"AILevel = 3"}, "no plane has AILevel 0", "", "Plane"},
    {"AILevel = 2", {"AILevel = 5"}, "outside 0 to 4"},
    {"AILevel = 2", {"AILevl = 2"}, "no key AILevl"},
    {"  AILevel = 2;\r\n", {""}, "Plane without AILevel", "", "Plane\r\n{\r\n  Name = \"Albert"},
    {"Fuel = 0.325", {"Fuel = 1.325", "Fuel = -0.325"}, "Fuel is outside"},
    {"Fuel = 0.325", {"Fuel = 0,325"}, "number"},
    {"StartInAir = 1", {"StartInAir = 2"}, "0 or 1"},
    {"YOri = 271.25", {"YOri = 371.25"}, "no heading"},
    {"YPos = 1912.5", {"YPos = -1912.5", "YPos = 90"}, "below the ground"},
    {"XPos = 216000", {"XPos = 2160000"}, "outside every map", "Plane"},
    {"XPos = 216000", {"XPos = 236000"}, "outside of it", "Plane", "Plane"},
    {"Country = 501", {"Country = 999"}, "no row for country 999"},
    {"  Name = \"Erich Sommer\";\r\n", {""}, "Plane without Name", "", "Plane"},
    {"\"Erich Sommer\"", {"\"\""}, "without a name"},
    {"  Index = 11;\r\n", {""}, "Plane without Index", "", "Plane"},
    {"Plane", {"Aeroplane"}, "no block Aeroplane"},
    {"Desc = \"ID4711\"", {"Desc = ID4711"}, "double quotes"},
    {"Index = 11;", {"Index = eleven;", "Index = 99999999999;"}, "whole number"},
    {"Index = 11;", {"Index = -11;"}, "not above 0"},
    {"YPos = 2043;\r\n  ZPos = 54700", {"YPos = 1912;\r\n  ZPos = 57301"},
     "on the spot", "Plane", "Plane\r\n{\r\n  Name = \"Albert"},

    // Links between the blocks, and orders.
    {"Index = 13;", {"Index = 11;"}, "too", "", "Plane\r\n{\r\n  Name = \"Albert"},
    {"LinkTrId = 12", {"LinkTrId = 14", "LinkTrId = 99"}, "names no entity", "", "Plane"},
    {"LinkTrId = 12", {"LinkTrId = 0"}, "takes no orders", "", "Plane"},
    {"MisObjID = 11", {"MisObjID = 13", "MisObjID = 99"}, "names no entity", "", "Plane"},
    {"Objects = [12,14]", {"Objects = [11,14]"}, "itself and not its entity"},
    {"Objects = [12,14]", {"Objects = [12,77]"}, "no Index"},
    {"Objects = [12,14]", {"Objects = [12,2]"}, "no entity"},
    {"Objects = [12,14]", {"Objects = []"}, "nobody is ordered"},
    {"Objects = [12,14]", {"Objects = [12,]", "Objects = 12"}, "a list"},
    {"Targets = []", {"Targets = [14]"}, "an enemy", "MCU_TR_Entity"},
    {"Targets = []", {"Targets = [12]", "Targets = [2]"},
     "leader's entity and nothing else", "MCU_TR_Entity"},
    {"Targets = [3]", {"Targets = [4]"}, "no Index"},
    {"Targets = [3]", {"Targets = []"}, "no chain", "MCU_Timer", "MCU_CMD_AttackArea"},
    {"Targets = [2]", {"Targets = []"}, "no chain", "", "MCU_CMD_AttackArea"},
    {"Enabled = 1", {"Enabled = 0"}, "no chain", "MCU_TR_MissionBegin", "MCU_CMD_AttackArea"},
    {"Random = 100", {"Random = 0"}, "no chain", "", "MCU_CMD_AttackArea"},
    {"Time = 3;", {"Time = -3;"}, "less than no time", "MCU_Timer"},
    {"AttackAir = 1", {"AttackAir = 0"}, "nobody would attack"},
    {"AttackArea = 10000", {"AttackArea = 0"}, "radius"},
    {"AttackArea = 10000", {"AttackArea = 1000"}, "outside of it", "", "\r\nPlane"},
    {"Time = 1800", {"Time = 0"}, "for no time"},
    {"Priority = 1", {"Priority = 3"}, "Priority"},
    {"  Priority = 1;\r\n", {""}, "without Priority", "", "MCU_CMD_AttackArea"},
    {"  Name = \"Start\";\r\n", {""}, "MCU_Timer without Name", "", "MCU_Timer"},
    {"OnMessages", {"OnMassages"}, "no block OnMassages"},
};
// clang-format on

} // namespace

TEST(MissionReader, ReadsPlanesLeadersAndOrders) {
    const Mission mission = readMission(missionText(sixPlanes()));
    EXPECT_EQ(mission.year * 10000 + mission.month * 100 + mission.day, 19180321);
    EXPECT_EQ(mission.hour * 100 + mission.minute, 907);
    ASSERT_EQ(mission.planes.size(), 6U);
    EXPECT_EQ(mission.human, 0);
    const Plane& wingMan = mission.planes[4];
    EXPECT_EQ(wingMan.name, "Albert Reed");
    EXPECT_EQ(wingMan.leader, 3);
    EXPECT_EQ(wingMan.area, 0) << "the order to his leader is his";
    EXPECT_STREQ(aircraftType(wingMan.aircraft).logType, "Sopwith Camel");
    EXPECT_EQ(wingMan.coalition, 1);
    EXPECT_EQ(wingMan.level, 1);
    EXPECT_EQ(wingMan.skin, "sopcamel\\some_skin.dds");
    EXPECT_TRUE(wingMan.inAir);
    EXPECT_DOUBLE_EQ(wingMan.heading, 92.5);
    ASSERT_EQ(mission.areas.size(), 1U);
    EXPECT_DOUBLE_EQ(mission.areas[0].delay, 3);
    EXPECT_DOUBLE_EQ(mission.areas[0].position.y, 1800);
    EXPECT_EQ(mission.countries.size(), 5U);
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
    for (const Edit& edit : Faults)
        for (const char* to : edit.to)
            expectRefused(edit, to);
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
