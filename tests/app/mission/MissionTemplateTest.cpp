#include <gtest/gtest.h>

#include "app/mission/MissionLine.h"
#include "tests/app/mission/MissionLines.h"
#include "tests/support/HandMade.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

namespace {

TEST(MissionTemplate, SplitsLines) {
    const struct {
        const char* line;
        const char* key;
        const char* value;
    } cases[] = {
        {"   Index = 1523;", "index", " 1523;"},
        {"Index=1523", "index", "1523"},
        {"\tXPos\t= 1;", "xpos", " 1;"},
        {" \tXPos \t=1", "xpos ", "1"}, // sic: blanks are cut before the tabs, and once
        {"\t XPos=1", " xpos", "1"},
        {" {", "{", ""},
        {"}", "}", ""},
        {"A = B = C", "a", " B = C"},
        {"", "", ""},
    };
    for (const auto& [line, key, value] : cases) {
        const zel::String text(line);
        const MissionLine split = splitMissionLine(text);
        EXPECT_EQ(split.key, key) << line;
        EXPECT_EQ(split.value, value) << line;
    }
    EXPECT_EQ(blockName(" \tMCU_CMD_AttackArea\t "), "MCU_CMD_AttackArea");
    EXPECT_FLOAT_EQ(missionFloat(" -12.50 ; "), -12.5F);
    EXPECT_EQ(missionFloat("none;"), 0);
}

/// The generator after it has read that template.
struct Scanned : MissionGenerator {
    explicit Scanned(const std::string& text) {
        setLines(*this, text);
        scanTemplate();
    }
};

TEST(MissionTemplate, CollectsTheObjects) {
    LogCapture lines(zel::LogInfo);
    Scanned scanned("{\n" // opens nothing without a line before it
                    "}\n"
                    "Group\n{\n  Index = 12;\n  XPos = 50;\n"
                    "  mcu_cmd_attackAREA\n  {\n"
                    "\tIndex=1523\n\tName = \"Attack\";\n"
                    "\tXPos = -100.5;\n\tYPos = 20;\n\tZPos = 300.25 ;\n  }\n"
                    "  Timer\n  {\n    Index = 99;\n    ZPos = 7;\n  }\n"
                    "  Name = \t\"After; the\"\t ;\n  YPos = -1;\n  ZPos = 8;\n"
                    "}\n}\n");
    EXPECT_EQ(scanned.maxIndex, 1523);
    std::string objects; // an unnamed block goes under the name and type of the last
    for (const TemplateObject& object : scanned.templateObjects)
        objects += std::string(object.name) + "|" + std::string(object.type) + "|" +
                   std::to_string(object.z) + "\n";
    EXPECT_EQ(objects, "Attack|mcu_cmd_attackAREA|300.250000\n"
                       "Attack|mcu_cmd_attackAREA|7.000000\n"
                       "After; the|Group|8.000000\n");
    EXPECT_FLOAT_EQ(scanned.minX, -100.5F);
    EXPECT_FLOAT_EQ(scanned.maxX, 50) << "outside of an object it counts all the same";
    EXPECT_FLOAT_EQ(scanned.minY, -1);
    EXPECT_FLOAT_EQ(scanned.maxZ, 300.25F);
    EXPECT_EQ(scanned.attackArea, 1) << "the unnamed block's type is that of the area before it";
    EXPECT_TRUE(lines.holds("[MissionGenerator] Index found: 1523\n")) << lines.text();
    EXPECT_EQ(lines.linesWith("[MissionGenerator] Attack area found"), 2);

    scanned.lines.lines.clear();
    scanned.attackObjects = {1};
    scanned.scanTemplate();
    EXPECT_EQ(scanned.maxIndex, 0);
    EXPECT_EQ(scanned.attackArea, -1);
    EXPECT_TRUE(scanned.templateObjects.empty() && scanned.attackObjects.empty());
    EXPECT_FALSE(scanned.seenX || scanned.seenY || scanned.seenZ);
    EXPECT_EQ(scanned.maxX, 0);
}

TEST(MissionTemplate, TakesTheLastOfTwoAttackAreas) {
    const std::string area = "MCU_CMD_AttackArea\n{\n  Name = \"A\";\n  ZPos = 1;\n}\n";
    EXPECT_EQ(Scanned(area + "X\n{\n  Name = \"X\";\n  ZPos = 2;\n}\n" + area).attackArea, 2);
}

TEST(MissionTemplate, IsReadWhereverItEnds) {
    const SmallWorld world;
    LogCapture lines;
    Database career;
    setDate(career, 1917, 5, 3);
    squadronOf(career, France, {0});
    squadronOf(career, Germany, {0});
    MissionGenerator whole;
    setLines(whole, "Options\n{\n  Time = 1:1:1;\n  Countries\n  {\n    0 : 0;\n  }\n}\n"
                    "MCU_CMD_AttackArea\n{\n  Index = 1;\n  Name = \"A\";\n  Objects = [];\n"
                    "  XPos = 1;\n  YPos = 2;\n  ZPos = 3;\n}\n");
    const std::vector<zel::String> all = whole.lines.lines;
    for (size_t count = 0; count <= all.size(); ++count) {
        MissionGenerator cut;
        cut.lines.lines.assign(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(count));
        cut.scanTemplate();
        cut.planMission(true);
        cut.generateMission();
        const std::string text = textOf(cut);
        EXPECT_EQ(valuesOf(text, "AILevel").size(), count >= 8 ? 2u : 0u)
            << "the planes are after the options, or nowhere";
        EXPECT_EQ(cut.attackArea, count >= 16 ? 0 : -1);
        EXPECT_EQ(text.find("    Objects = [3,5];") != text.npos, count >= 13);
    }
}

} // namespace
