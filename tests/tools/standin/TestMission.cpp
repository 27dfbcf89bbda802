#include "tests/tools/standin/TestMission.h"

#include <gtest/gtest.h>

namespace standin {

namespace {

// Keys stand side by side here and on lines of their own in the mission.
constexpr const char* Head = R"(# Mission File Version = 1.0;

Options
{
  LCName = 0; LCDesc = 1; LCAuthor = 2; PlayerConfig = ""; Time = 9:7:0; Date = 21.3.1918;
  HMap = "graphics\landscape\height.ini"; Textures = "graphics\landscape\textures.ini";
  Forests = "graphics\landscape\trees\woods.wds"; GuiMap = "swf\data\maps\15.07.1918.info";
  SeasonPrefix = "su"; MissionType = 0; CloudLevel = 1500; CloudHeight = 600; PrecLevel = 0;
  PrecType = 0; CloudConfig = "clear\sky.ini"; SeaState = 0; Turbulence = 0; TempPressLevel = 0;
  Temperature = 15; Pressure = 760;
  WindLayers
  {
    0 :     0 :     0;
    500 :     0 :     0;
  }
  Countries
  {
    0 : 0;
    101 : 1;
    102 : 1;
    103 : 1;
    501 : 2;
  }
}
)";

constexpr const char* Logic = R"(
MCU_TR_MissionBegin
{
  Index = 1; Name = "Begin"; Desc = ""; Targets = [2]; Objects = [];
  XPos = 216000.000; YPos = 150.000; ZPos = 56000.000; XOri = 0.00; YOri = 0.00; ZOri = 0.00;
  Enabled = 1;
}

MCU_Timer
{
  Index = 2; Name = "Start"; Desc = ""; Targets = [3]; Objects = [];
  XPos = 216000.000; YPos = 150.000; ZPos = 56000.000; Time = 3; Random = 100;
}

MCU_CMD_AttackArea
{
  Index = 3; Name = "Attack"; Desc = ""; Targets = []; Objects = [@LEADERS];
  XPos = 216000.000; YPos = 1800.000; ZPos = 56000.000;
  AttackGround = 0; AttackAir = 1; AttackGTargets = 0; AttackArea = 10000; Time = 1800;
  Priority = 1;
}

# end of file
)";

constexpr const char* PlaneText = R"(
Plane
{
  Name = "@NAME"; Index = @INDEX; LinkTrId = @ENTITY; XPos = @X; YPos = @Y; ZPos = @Z;
  XOri = 0; YOri = @HEADING; ZOri = 0;
  Script = "LuaScripts\WorldObjects\@TYPE.txt"; Model = "graphics\planes\@TYPE\@TYPE.mgm";
  Country = @COUNTRY; Desc = "ID4711"; Skin = "@TYPE\some_skin.dds"; AILevel = @LEVEL;
  StartInAir = @INAIR; PayloadId = 0; Fuel = 0.325;
}

MCU_TR_Entity
{
  Index = @ENTITY; Name = "@NAME"; Desc = "ID4711"; Targets = [@LEADER]; Objects = [];
  XPos = @X; YPos = @Y; ZPos = @Z; Enabled = 1; MisObjID = @INDEX;
  OnMessages
  {
  }
}
)";

std::string filled(std::string text, const char* mark, const std::string& value) {
    for (size_t place = 0; (place = text.find(mark, place)) != text.npos; place += value.size())
        text.replace(place, std::string(mark).size(), value);
    return text;
}

/// A key a line, and lines as the simulator has them.
std::string laidOut(const std::string& text) {
    return filled(filled(text, "; ", ";\n  "), "\n", "\r\n");
}

} // namespace

std::string missionText(const std::vector<TestPlane>& planes, bool inAir) {
    std::string text = Head;
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
        const std::pair<const char*, std::string> values[] = {
            {"@NAME", plane.name},
            {"@INDEX", std::to_string(index)},
            {"@ENTITY", std::to_string(index + 1)},
            {"@X", std::to_string(216000 + 100 * members[side]++)},
            {"@Y", inAir ? (side == 1 ? "1912.5" : "2043") : "86.5"},
            {"@Z", side == 1 ? "57300" : "54700"},
            {"@HEADING", side == 1 ? "271.25" : "92.5"},
            {"@TYPE", plane.type},
            {"@COUNTRY", std::to_string(plane.country)},
            {"@LEVEL", std::to_string(plane.level)},
            {"@INAIR", inAir ? "1" : "0"},
            {"@LEADER", leads ? "" : std::to_string(leader[side])}};
        std::string block = PlaneText;
        for (const auto& [mark, value] : values)
            block = filled(block, mark, value);
        text += block;
    }
    return laidOut(text + filled(Logic, "@LEADERS", leaders));
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
    return laidOut("MCU_TR_MissionObjective\n{\n  Index = " + std::to_string(index) +
                   "; Targets = []; Objects = []; XPos = 1.500; YPos = 2.000; ZPos = 3.000; "
                   "Enabled = 1; LCName = 0; LCDesc = 0; TaskType = 0; Coalition = 2; "
                   "Success = 1; IconType = 904;\n}\n");
}

Mission readMission(const std::string& text) {
    Mission mission;
    Fault fault;
    EXPECT_TRUE(readMissionText(text, mission, fault)) << fault.line << ": " << fault.reason;
    return mission;
}

std::string replaced(const std::string& text, const std::string& from, const std::string& to,
                     const std::string& after) {
    const size_t start = text.find(after);
    const size_t place = start == text.npos ? start : text.find(from, start);
    if (place == text.npos) {
        ADD_FAILURE() << "'" << from << "' behind '" << after << "' isn't in the mission";
        return text;
    }
    std::string result = text;
    return result.replace(place, from.size(), to);
}

} // namespace standin
