#include "app/book/Standing.h"

#include <gtest/gtest.h>

#include "app/book/BookTables.h"
#include "app/book/PilotRecord.h"
#include "app/book/ServiceText.h"
#include "tests/support/HandMade.h"

namespace {

struct Man {
    const char* name;
    int32_t victories;
    int32_t missions;
    bool isAlive;
};
constexpr Man Men[] = {{"Erich Sommer", 7, 40, true},
                       {"Manfred von Richthofen", 60, 90, true},
                       {"Wolfram-Friedrich von Hohenlohe", 120, 100, false},
                       {"Anton Low", 4, 30, true},
                       {"Lothar Drei", 7, 41, true}};

struct StandingTest : testing::Test {
    StandingTest() {
        setDate(career, 1917, 4, 30);
        const int32_t squadron = emptySquadron(career, Germany);
        for (const Man& man : Men) {
            addPilot(career, squadron, man.name, {});
            Pilot& pilot = career.pilots.back();
            pilot.shotdowns = static_cast<uint16_t>(man.victories);
            pilot.missions = static_cast<uint16_t>(man.missions);
            pilot.alive = man.isAlive ? 1 : 0;
        }
        career.pilots[1].historic = 1;
    }
    Database career;
};

TEST_F(StandingTest, RanksTheAcesAndThePlayer) {
    std::string table;
    for (const StandingRow& row : aceRows(career, BookTables::instance(), 10))
        table += std::string(zel::String(row.place)) + " " + std::string(shortMarkedName(row)) +
                 " " + std::string(realScoreText(row, 19170430)) + ";";
    EXPECT_EQ(table, "1 W. von Hohenlohe RIP ;2 M. von Richthofen 52;3 L. Drei ;"
                     "4 E. Sommer (you!) ;");
    EXPECT_EQ(aceRows(career, BookTables::instance(), 2).size(), 2U);
    EXPECT_EQ(placeText(standingOf(career, BookTables::instance(), career.playerPilot)),
              "Your place: 4");
    career.pilots[0].shotdowns = 0;
    EXPECT_EQ(placeText(standingOf(career, BookTables::instance(), career.playerPilot)),
              "No victory yet");
}

TEST_F(StandingTest, SetsTheRollInColumns) {
    const char* const lines[] = {
        " 1. Manfred von Richthofen           60         90",
        " 2. Lothar Drei                       7         41",
        " 3. Erich Sommer (you!)               7         40",
    };
    const std::vector<StandingRow> rows = rosterRows(career, BookTables::instance());
    ASSERT_GE(rows.size(), std::size(lines));
    const size_t first = rows[0].isAlive ? 0 : 1;
    for (size_t i = 0; i < std::size(lines); ++i) {
        StandingRow row = rows[first + i];
        row.place = int32_t(i + 1);
        EXPECT_EQ(rollLine(row), lines[i]);
    }
    StandingRow own = rows[first];
    own.name = "Wolfram-Friedrich von Hohenlohe";
    own.isOwn = true;
    EXPECT_EQ(rollLine(own).length(), int32_t(RollLetters));
    EXPECT_NE(rollLine(own).view().find("W. von Hohenlohe (you!) "), std::string_view::npos);
}

TEST(VictoryLineTest, FitsItsColumns) {
    PilotVictory victory{19170930, "Wolfram-Friedrich von Hohenlohe", "albatrosd3", true};
    EXPECT_EQ(victoryLine(victory), "30 Sept 1917  Albatros D.III  W. von Hohenlohe RIP    ");
    victory = {19170501, "Max Hall", "Halberstadt CL.II", false};
    EXPECT_EQ(victoryLine(victory), "1 May 1917    Halberstadt     Max Hall                ");
}

} // namespace
