#include <map>
#include <sstream>

#include <gtest/gtest.h>

#include "app/mission/MissionLine.h"
#include "tests/app/mission/MissionLines.h"
#include "tests/support/HandMade.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"
#include "tests/support/Texts.h"

namespace {

/// A text of the folder, with the values of its {keys}.
std::string text(const char* name, const std::map<std::string, std::string>& values) {
    return filled(fileText(std::string(TEXTS_FOLDER "/") + name), values);
}

/// The lines of a landscape; the template formats the first of their keys differently.
std::string landscape(const char* key, const char* folder, const char* map, const char* season) {
    return text("Landscape.txt",
                {{"key", key}, {"folder", folder}, {"map", map}, {"season", season}});
}
constexpr const char* Western = "swf\\data\\maps\\15.07.1918.info";
const std::string Summer = landscape("hmap", "landscape", Western, "su");
const std::string Template = text("Template.txt", {{"landscape", Summer}});

// The plan by the rules in reverse order, as in the file.
constexpr const char* PlaneKeys =
    "name|index|entity|country|pilot|level|target|skin|type|payload|x|y|z|heading";
constexpr const char* Planes[] = {
    "Hans Braun|16|17|501|8|2|15||albatrosd3|0|201600|428.553|58709.4|267.402",
    "Otto Klein|14|15|501|7|1|||albatrosd3|0|201500|428.553|58709.4|267.402",
    "Bill Young|12|13|103|1|3|11|spad13\\own.dds|spad13|2|201600|882.737|56290.6|80.8339",
    "Jean 'Ace' Petit/12|10|11|101|0|0||spad13\\stork.dds|spad13|2|201500|882.737|56290.6|80.8339",
};

std::string expectedPlanes() {
    std::string planes;
    for (const char* row : Planes) {
        std::istringstream keys(PlaneKeys);
        std::istringstream values(row);
        std::map<std::string, std::string> plane;
        for (std::string key; std::getline(keys, key, '|');)
            std::getline(values, plane[key], '|');
        planes += text("Plane.txt", plane);
    }
    return planes;
}

/// What the rules make of the template. 200000, 40, 60000 is the base, 1500 and -2500 the offsets.
/// The draws of seed 6 (by another MT19937) are 50, 9 and 1 for minute, hour and sky, and then as
/// they are in the planes' positions.
std::string expectedMission(const std::string& land) {
    const std::pair<std::string, std::string> edits[] = {
        {"  PlayerConfig = \"config\";", ""},
        {"    Time = 9:30:0;", "  Time = 9:50:0;"},
        {"10.4.1917", "3.5.1917"},
        {Summer, land},
        {"\"none\"", "\"AverageFog\\sky.ini\""},
        {"MCU_CMD_AttackArea", expectedPlanes() + "MCU_CMD_AttackArea"},
        {"  Objects = [1,2]", "    Objects = [11,15]"},
        {"  XPos = 1000.000", "    XPos = 201500"},
        {"  YPos = 500.000", "    YPos = 540"},
        {"  ZPos = 2000.000", "    ZPos = 57500"},
        {"\tXPos = 1100.125", "    XPos = 201600"},
        {"\tYPos = 600", "    YPos = 640"},
        {"\tZPos = 1900", "    ZPos = 57400"},
    };
    std::string text = Template;
    for (const auto& [from, to] : edits)
        text.replace(text.find(from), from.size(), to);
    return text;
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

TEST(MissionWriter, WritesTheMissionByTheRules) {
    const struct {
        int32_t mapIndex;
        const char* drawn; // season
        std::string land;
    } cases[] = {
        {0, "su", Summer},
        {0, "wi", landscape("HMap", "landscape_winter", Western, "wi")},
        {0, "au", landscape("HMap", "landscape_autumn", Western, "au")},
        {1, "wi",
         landscape("HMap", "LANDSCAPE_channel", "swf/data/maps/channel_summer.info", "su")}};
    for (const auto& [mapIndex, drawn, land] : cases) {
        WriterCareer test;
        test.generator.mapIndex = mapIndex;
        test.generator.seasonPrefix = drawn;
        const std::string expected = expectedMission(land);
        EXPECT_EQ(test.generated(), expected) << drawn << mapIndex;
        EXPECT_EQ(test.generator.maxIndex, 17);

        ASSERT_TRUE(test.generator.saveMission(test.world.folder.file("out/M.Mission")));
        EXPECT_EQ(test.world.folder.read("out/M.Mission"), replacedAll(expected, "\n", "\r\n"));
        EXPECT_FALSE(test.generator.saveMission(test.world.folder.path() + "/nowhere/M.Mission"));
    }
    WriterCareer other; // seed 9 draws 10, 16 and 0
    const std::string text = other.generated(9);
    EXPECT_NE(text.find("\n  Time = 16:10:0;\n"), text.npos);
    EXPECT_NE(text.find("\n  CloudConfig = \"clear\\sky.ini\";\n"), text.npos);
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

// A single such character makes the simulator refuse the mission without a message.
TEST(MissionWriter, WritesOnlyTextThatTheSimulatorCanHold) {
    WriterCareer test;
    test.generator.plan[0].name = "J\xFCrgen; = {\"\xC9mile\"}\x1B\x81\x7F";
    zel::copyText(test.career.dataLines.back().text, "aircraft=spad13 skin=..\\own.dds");
    const std::string text = test.generated();
    EXPECT_NE(text.find("  Name = \"Juergen, - ('Emile')___/12\";\n"), text.npos);
    EXPECT_EQ(valuesOf(text, "Skin")[2], "\"spad13\\stork.dds\"") << "his squadron's";
    EXPECT_EQ(test.lines.linesWith(" w 0 [MissionGenerator] The simulator can't read the"), 2)
        << test.lines.text();
    for (const char* skin :
         {"a;b", "a{b", "a}b", "a\"b", "a'b", "a/b", "a\\b", "c:b", "..", "a\tb", "a\x7F", "\xFC"})
        EXPECT_FALSE(isMissionSkin(skin)) << skin;
    EXPECT_TRUE(isMissionSkin("101003_a-(b).dds"));
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

} // namespace
