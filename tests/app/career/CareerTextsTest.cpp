#include "app/career/CareerTexts.h"

#include <gtest/gtest.h>

#include "app/career/Database.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

namespace {

using Texts = std::vector<zel::String>;

/// Twelve Frenchmen and twelve Englishmen without victories; the player is pilot 2.
class CareerTexts : public testing::Test {
protected:
    CareerTexts() {
        world.addSquadron("103022", "");
        career.readDataFiles();
        career.addSquadron(France);
        career.addSquadron(England);
        for (size_t i = 0; i < career.pilots.size(); ++i) {
            career.pilots[i].missions = career.pilots[i].skill = 0;
            zel::copyText(career.pilots[i].name, "Pilot " + std::to_string(i));
        }
        career.playerPilot = 2;
        zel::copyText(career.squadrons[0].baseName, "St. Omer");
    }

    SmallWorld world;
    Database career;
};

TEST_F(CareerTexts, TellWhenTheWarIsOver) {
    career.year = 1918;
    for (const auto& [month, day, isOver] :
         {std::tuple{11, 10, false}, {11, 11, true}, {12, 1, true}, {1, 31, false}}) {
        career.month = month;
        career.day = day;
        EXPECT_EQ(missionButtonText(career), isOver ? "The War is over!" : "Next Mission");
        EXPECT_EQ(isWarOver(career), isOver);
    }
}

TEST_F(CareerTexts, TellWhereThePlayerServes) {
    EXPECT_EQ(baseText(career), "Current base: Near St. Omer");
    EXPECT_EQ(squadronText(career), "") << "a generated squadron has no name";
    career.squadrons[0].squadronFile = 0;
    EXPECT_EQ(squadronText(career), "22nd Aero");
    zel::copyText(career.squadronFiles[0].key, "999001");
    EXPECT_EQ(squadronText(career), "");
}

TEST_F(CareerTexts, ListTheSquadronBestFirst) {
    career.pilots[7].shotdowns = 3;
    career.pilots[2].shotdowns = 1;
    career.pilots[0].alive = 0;
    const Texts lines = squadronLines(career);
    ASSERT_EQ(lines.size(), 12u);
    EXPECT_EQ(lines[0], "Pilot 7: 3");
    EXPECT_EQ(lines[1], "Pilot 2 (you!): 1");
    EXPECT_EQ(lines[11], "Pilot 0: 0");
    EXPECT_EQ(squadronLines(career, 2).size(), 2u);
}

TEST_F(CareerTexts, ListTheWarsAces) {
    Texts expected(10);
    expected[0] = "(NO PILOTS WITH MORE THAN 5 SHOTDOWNS)";
    career.pilots[4].shotdowns = 4;
    EXPECT_EQ(aceLines(career), expected);

    const int32_t scores[][4] = {
        {20, 80, 1, 0}, {2, 12, 5, 0}, {9, 12, 9, 1}, {23, 5, 0, 1}, {5, 5, 0, 1}};
    for (const auto& [pilot, shotdowns, missions, alive] : scores) {
        career.pilots[size_t(pilot)].shotdowns = static_cast<uint16_t>(shotdowns);
        career.pilots[size_t(pilot)].missions = static_cast<uint16_t>(missions);
        career.pilots[size_t(pilot)].alive = static_cast<uint8_t>(alive);
    }
    expected = {"Pilot 20: 80 RIP", "Pilot 9: 12", "Pilot 2 (you!): 12 RIP", "Pilot 5: 5",
                "Pilot 23: 5"};
    expected.resize(10);
    EXPECT_EQ(aceLines(career), expected);
    EXPECT_EQ(bestPilots(career.pilots, 99).size(), 24u);
    EXPECT_TRUE(bestPilots({}, 10).empty());
}

} // namespace
