#include <map>

#include <gtest/gtest.h>

#include "tests/app/mission/MissionLines.h"
#include "tests/support/HandMade.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

namespace {

const char* const Template = R"(# Mission File Version = 1.0;
Options
{
  LCName = 0;
  PlayerConfig = "config";
    Time = 9:30:0;
  Date = 10.4.1917;
  hmap = "graphics\landscape\height.ini";
  Textures = "graphics\landscape\textures.ini";
  Forests = "graphics\landscape\trees\woods.wds";
  GuiMap = "swf\data\maps\15.07.1918.info";
  SeasonPrefix = "su";
  CloudConfig = "none";
  WindLayers
  {
    Time = 7;
    0 :     0 :     0;
  }
}
MCU_CMD_AttackArea
{
  Index = 7;
  Name = "Area";
  Objects = [1,2];
  XPos = 1000.000;
  YPos = 500.000;
  ZPos = 2000.000;
  Time = 3600;
}
MCU_Timer
{
	Index = 9;
	Name = "Timer";
	Objects = [];
	XPos = 1100.125;
	YPos = 600;
	ZPos = 1900;
	Time = 3;
}
MCU_TR_Entity
{
  Index = 3;
  Name = "Stays";
  XPos = 1;
  YPos = 2;
  ZPos = 3;
}
Bridge
{
  Name = "Stays, too";
  XPos = 4;
  YPos = 5;
  ZPos = 6;
}
)";

// The same mission by the rules: 200000, 40, 60000 is the base, 1500 and -2500 the offsets. The
// draws of seed 6 (by another MT19937) are 50, 9 and 1 for minute, hour and sky, and then as they
// stand in the planes' places.
const char* const Expected = R"(# Mission File Version = 1.0;
Options
{
  LCName = 0;

  Time = 9:50:0;
  Date = 3.5.1917;
{landscape}  CloudConfig = "AverageFog\sky.ini";
  WindLayers
  {
    Time = 7;
    0 :     0 :     0;
  }
}
{planes}MCU_CMD_AttackArea
{
  Index = 7;
  Name = "Area";
    Objects = [11,15];
    XPos = 201500;
    YPos = 540;
    ZPos = 57500;
  Time = 3600;
}
MCU_Timer
{
	Index = 9;
	Name = "Timer";
	Objects = [];
    XPos = 201600;
    YPos = 640;
    ZPos = 57400;
	Time = 3;
}
MCU_TR_Entity
{
  Index = 3;
  Name = "Stays";
  XPos = 1;
  YPos = 2;
  ZPos = 3;
}
Bridge
{
  Name = "Stays, too";
  XPos = 4;
  YPos = 5;
  ZPos = 6;
}
)";

const char* const ExpectedPlane = R"(
Plane
{
  Name = "{name}";
  Index = {index};
  LinkTrId = {entity};
  XPos = {x};
  YPos = {y};
  ZPos = {z};
  XOri = 0;
  YOri = {heading};
  ZOri = 0;
  Script = "LuaScripts\WorldObjects\{type}.txt";
  Model = "graphics\planes\{type}\{type}.mgm";
  Country = {country};
  Desc = "ID{pilot}";
  Skin = {skin};
  AILevel = {level};
  CoopStart = 0;
  NumberInFormation = 0;
  Vulnerable = 1;
  Engageable = 1;
  LimitAmmo = 1;
  StartInAir = 1;
  Time = 0;
  DamageReport = 50;
  DamageThreshold = 1;
  PayloadId = {payload};
  Fuel = 0.325;
}

MCU_TR_Entity
{
  Index = {entity};
  Name = "{name}";
  Desc = "ID{pilot}";
  Targets = [{target}];
  Objects = [];
  XPos = {x};
  YPos = {y};
  ZPos = {z};
  XOri = 0;
  YOri = {heading};
  ZOri = 0;
  Enabled = 1;
  MisObjID = {index};
  OnMessages
  {
  }
}

)";

/// The text with each {key} replaced by its value.
std::string filled(std::string text, const std::map<std::string, std::string>& values) {
    for (const auto& [key, value] : values)
        for (size_t at = 0; (at = text.find("{" + key + "}", at)) != text.npos; at += value.size())
            text.replace(at, key.size() + 2, value);
    return text;
}

std::string expectedPlane(const char* name, const char* index, const char* entity, const char* x,
                          bool allied, const char* type, const char* country, const char* pilot,
                          const char* skin, const char* level, const char* target) {
    return filled(ExpectedPlane, {{"name", name},
                                  {"index", index},
                                  {"entity", entity},
                                  {"x", x},
                                  {"y", allied ? "882.737" : "428.553"},
                                  {"z", allied ? "56290.6" : "58709.4"},
                                  {"heading", allied ? "80.8339" : "267.402"},
                                  {"type", type},
                                  {"country", country},
                                  {"pilot", pilot},
                                  {"skin", skin},
                                  {"level", level},
                                  {"payload", allied ? "2" : "0"},
                                  {"target", target}});
}

/// The last of the plan comes first in the file.
std::string expectedMission(const char* landscape) {
    const std::string planes =
        expectedPlane("Hans Braun", "16", "17", "201600", false, "albatrosd3", "501", "8", "\"\"",
                      "2", "15") +
        expectedPlane("Otto Klein", "14", "15", "201500", false, "albatrosd3", "501", "7", "\"\"",
                      "1", "") +
        expectedPlane("Bill Young", "12", "13", "201600", true, "spad13", "103", "1",
                      "\"spad13\\own.dds\"", "3", "11") +
        expectedPlane("Jean 'Ace' Petit/12", "10", "11", "201500", true, "spad13", "101", "0",
                      "\"spad13\\stork.dds\"", "0", "");
    return filled(Expected, {{"landscape", landscape}, {"planes", planes}});
}

/// A generator that has read the template, with a plan of two against two; the second is an
/// American of the same squadron, who has a paint of his own.
struct WriterCareer {
    explicit WriterCareer(const std::string& text = Template) {
        setDate(career, 1917, 5, 3);
        squadronOf(career, France, {0});
        squadronOf(career, Germany, {0});
        addFile(career, "101003",
                {"date=19170301 aircraft=spad7 skin=old.dds", "date=19170401 aircraft=spad13",
                 "date=19170401 aircraft=SPAD13 skin=stork.dds"});
        career.pilotFiles.push_back(blank<PilotFile>());
        career.pilotFiles[0].lines[0] = static_cast<int32_t>(career.dataLines.size());
        career.dataLines.push_back(blank<DataLine>());
        zel::copyText(career.dataLines.back().text, "date=19180101 aircraft=spad13 skin=own.dds");

        setLines(generator, text);
        generator.scanTemplate();
        generator.plan = {plannedPlane(0, "Jean \"Ace\" Petit", France, {3, 12, 40}),
                          plannedPlane(1, "Bill Young", Usa, {9, 4, 0}),
                          plannedPlane(7, "Otto Klein", Germany, {0, 0, 0}),
                          plannedPlane(8, "Hans Braun", Germany, {0, 1, 0})};
        generator.plan[0].type = generator.plan[1].type = "spad13";
        generator.plan[1].pilotFile = 0;
        generator.plan[2].squadron = generator.plan[3].squadron = 1;
        generator.locationX = 200000;
        generator.locationY = 40;
        generator.locationZ = 60000;
        generator.offsetX = 1500;
        generator.offsetZ = -2500;
    }
    std::string generated(uint32_t seed = 6) {
        generator.reseed(seed);
        generator.generateMission();
        return textOf(generator);
    }
    SmallWorld world;
    LogCapture lines;
    Database career;
    MissionGenerator generator;
};

constexpr const char* Summer = R"(  hmap = "graphics\landscape\height.ini";
  Textures = "graphics\landscape\textures.ini";
  Forests = "graphics\landscape\trees\woods.wds";
  GuiMap = "swf\data\maps\15.07.1918.info";
  SeasonPrefix = "su";
)";
constexpr const char* Winter = R"(  HMap = "graphics\landscape_winter\height.ini";
  Textures = "graphics\landscape_winter\textures.ini";
  Forests = "graphics\landscape_winter\trees\woods.wds";
  GuiMap = "swf\data\maps\15.07.1918.info";
  SeasonPrefix = "wi";
)";
constexpr const char* Autumn = R"(  HMap = "graphics\landscape_autumn\height.ini";
  Textures = "graphics\landscape_autumn\textures.ini";
  Forests = "graphics\landscape_autumn\trees\woods.wds";
  GuiMap = "swf\data\maps\15.07.1918.info";
  SeasonPrefix = "au";
)";
constexpr const char* Channel = R"(  HMap = "graphics\LANDSCAPE_channel\height.ini";
  Textures = "graphics\LANDSCAPE_channel\textures.ini";
  Forests = "graphics\LANDSCAPE_channel\trees\woods.wds";
  GuiMap = "swf/data/maps/channel_summer.info";
  SeasonPrefix = "su";
)";

TEST(MissionWriter, WritesTheMissionByTheRules) {
    const struct {
        int32_t mapIndex;
        const char* season;
        const char* landscape;
    } cases[] = {{0, "su", Summer}, {0, "wi", Winter}, {0, "au", Autumn}, {1, "wi", Channel}};
    for (const auto& [mapIndex, season, landscape] : cases) {
        WriterCareer test;
        test.generator.mapIndex = mapIndex;
        test.generator.seasonPrefix = season;
        EXPECT_EQ(test.generated(), expectedMission(landscape)) << season << mapIndex;
        EXPECT_EQ(test.generator.maxIndex, 17);

        ASSERT_TRUE(test.generator.saveMission(test.world.folder.file("out/M.Mission")));
        std::string expected = expectedMission(landscape);
        for (size_t at = 0; (at = expected.find('\n', at)) != expected.npos; at += 2)
            expected.insert(at, 1, '\r');
        EXPECT_EQ(test.world.folder.read("out/M.Mission"), expected);
        EXPECT_FALSE(test.generator.saveMission(test.world.folder.path() + "/nowhere/M.Mission"));
    }
}

TEST(MissionWriter, DrawsTheSkyAfterTheTime) {
    WriterCareer test; // seed 9 draws 10, 16 and 0
    const std::string text = test.generated(9);
    EXPECT_NE(text.find("\n  Time = 16:10:0;\n"), text.npos);
    EXPECT_NE(text.find("\n  CloudConfig = \"clear\\sky.ini\";\n"), text.npos);
    EXPECT_TRUE(test.lines.holds("ORG POSITION X: 1000\nORG POSITION Y: 500\n"
                                 "ORG POSITION Z: 2000\n"));
}

TEST(MissionWriter, NamesNothingInAnAreaInFrontOfTheOptions) {
    std::string text(Template);
    const size_t area = text.find("MCU_CMD_AttackArea");
    const size_t behind = text.find("MCU_Timer");
    const std::string block = text.substr(area, behind - area);
    text.erase(area, behind - area).insert(text.find("Options"), block);
    WriterCareer test(text);
    EXPECT_NE(test.generated().find("    Objects = [];"), std::string::npos);
}

TEST(MissionWriter, TakesASquadronsPaintWithoutOneOfHisOwn) {
    WriterCareer test;
    test.generator.plan[1].pilotFile = -1;
    test.generator.plan[0].type = "spad7";
    test.generator.plan[2].type = "pfalzd3a"; // his squadron has no file
    const std::vector<std::string> skins = valuesOf(test.generated(), "Skin");
    EXPECT_EQ(skins, (std::vector<std::string>{"\"\"", "\"\"", "\"spad13\\stork.dds\"",
                                               "\"spad7\\old.dds\""}));
}

TEST(MissionWriter, MakesTheSkyWorthFlyingIn) {
    const struct {
        size_t planes;
        int32_t best;
    } cases[] = {{2, 2}, {3, 2}, {4, 3}, {8, 3}};
    for (const auto& [planes, best] : cases) {
        WriterCareer test;
        test.generator.plan.clear();
        for (size_t i = 0; i < planes; ++i)
            test.generator.plan.push_back(
                plannedPlane(0, "Novice", i < planes / 2 ? France : Germany));
        int32_t highest = 0;
        int32_t players = 0;
        for (const std::string& level : valuesOf(test.generated(), "AILevel")) {
            highest = std::max(highest, std::stoi(level));
            players += level == "0";
        }
        EXPECT_EQ(highest, best) << planes << " planes";
        EXPECT_EQ(players, 1);
    }
}

TEST(MissionWriter, DrawsItsPlaceAroundTheBase) {
    WriterCareer test;
    test.generator.reseed(12);
    zel::Random draws(12);
    test.generator.setMissionLocation(1, 78614.35F, 1050.25F, 173931.61F, 10000, 0, 10000);
    EXPECT_EQ(test.generator.mapIndex, 1);
    EXPECT_FLOAT_EQ(test.generator.locationX, 78614.35F);
    EXPECT_FLOAT_EQ(test.generator.locationY, 1050.25F);
    EXPECT_FLOAT_EQ(test.generator.locationZ, 173931.61F);
    EXPECT_FLOAT_EQ(test.generator.offsetX, draws.getFloat(-10000, 10000));
    draws.next();
    EXPECT_EQ(test.generator.offsetY, 0);
    EXPECT_FLOAT_EQ(test.generator.offsetZ, draws.getFloat(-10000, 10000));
    EXPECT_EQ(test.generator.random->next(), draws.next());
    EXPECT_TRUE(test.lines.holds("LOCATION X: 78614.4 ; LOCATION Y: 173932\n")) << "sic";
}

} // namespace
