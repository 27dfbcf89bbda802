#include "app/report/CombatReport.h"

#include <gtest/gtest.h>

#include "tests/app/report/FlightLog.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

namespace {

/// The pilots that a plan's names find behind the names of a log, all of one nation; -1 for none.
std::vector<int32_t> mapped(const std::vector<std::string>& planned,
                            const std::vector<std::string>& logged) {
    MissionGenerator generator;
    for (const std::string& name : planned)
        generator.plan.push_back(
            plannedPlane(static_cast<int32_t>(generator.plan.size()), name, France));
    CombatReport report;
    for (const std::string& name : logged) {
        PilotReport& record = report.pilots.emplace_back();
        record.name = zel::String(name);
        record.country = France;
    }
    std::vector<int32_t> pilots;
    const int32_t matches = report.mapPilots();
    int32_t found = 0;
    for (const PilotReport& record : report.pilots) {
        pilots.push_back(record.pilot);
        found += record.pilot >= 0;
    }
    EXPECT_EQ(matches, found);
    return pilots;
}

using Pilots = std::vector<int32_t>;

TEST(CombatReport, FindsPilotsByTheirNames) {
    const LogCapture lines;
    EXPECT_EQ(mapped({"Luc Noir", "Jean Petit"}, {"Jean Petit/12", "Luc Noir", "gun"}),
              (Pilots{1, 0, -1}));
    EXPECT_EQ(mapped({"Luc Noir"}, {"Luc Noi", "Luc Noirs", "luc noir"}), (Pilots{-1, -1, -1}));
    EXPECT_EQ(mapped({"Luc Noir/a"}, {"Luc Noir/6"}), (Pilots{0})) << "cut in front of the stroke";
    EXPECT_EQ(mapped({"/Luc"}, {"/Luc"}), (Pilots{0})) << "nothing stands in front of it";
    EXPECT_EQ(mapped({" Luc "}, {"Luc"}), (Pilots{0}));
    EXPECT_EQ(mapped({"Luc Noir"}, {"Luc Noir", "Luc Noir"}), (Pilots{0, 0})) << "one plan, two";
    EXPECT_EQ(mapped({}, {"Luc Noir"}), (Pilots{-1}));
}

// The simulator cuts at 31 characters, and the victories with the rest.
TEST(CombatReport, FindsPilotsByTheStartOfTheirNames) {
    const LogCapture lines;
    for (const size_t length : {27u, 28u, 29u, 30u, 31u, 32u, 40u}) {
        const std::string name = std::string("Jean-Baptiste Montgolfier de la Tour du Pin", length);
        for (const char* victories : {"", "/7", "/12", "/123"})
            EXPECT_EQ(mapped({name}, {(name + victories).substr(0, 31)}), (Pilots{0}))
                << length << victories;
    }
    const std::string blankAtTheCut = "Jean-Baptiste Auguste Montgolf de la Tour";
    ASSERT_EQ(blankAtTheCut[30], ' ');
    EXPECT_EQ(mapped({blankAtTheCut}, {"Jean-Baptiste Auguste Montgolf"}), (Pilots{0}))
        << "the log's value loses its last blank";
}

// The mission's text can't hold the quote; the log brings the apostrophe back.
TEST(CombatReport, FindsPilotsWithAQuoteInTheirNames) {
    const LogCapture lines;
    EXPECT_EQ(mapped({"Luc \"Ace\" Noir"}, {"Luc 'Ace' Noir/7"}), (Pilots{0}));
}

TEST(CombatReport, GivesNamesakesTheirRecordsInTurn) {
    const LogCapture lines;
    EXPECT_EQ(mapped({"Luc Noir", "Max", "Luc Noir", "Luc Noir"},
                     {"Luc Noir/9", "Luc Noir", "Max", "Luc Noir/6"}),
              (Pilots{0, 2, 1, 3}));
    EXPECT_EQ(mapped({"Luc Noir", "Luc Noir"}, {"Luc Noir"}), (Pilots{0}));
    EXPECT_EQ(mapped({"Luc Noir", "Luc Noir"}, {"Luc Noir", "Luc Noir", "Luc Noir"}),
              (Pilots{0, 1, -1}));
    const std::string longName = "Jean-Baptiste de la Montgolfiere";
    EXPECT_EQ(mapped({longName + " I", longName + " II"},
                     {longName.substr(0, 31), longName.substr(0, 31)}),
              (Pilots{0, 1}))
        << "the log has cut what told them apart";
}

TEST(CombatReport, TellsTheNationsApart) {
    LogCapture lines;
    MissionGenerator generator;
    generator.plan = {plannedPlane(0, "Max", France), plannedPlane(1, "Max", Germany)};
    CombatReport report;
    report.pilots.resize(3);
    const int32_t countries[] = {Germany, France, Usa};
    for (size_t i = 0; i < 3; ++i) {
        report.pilots[i].name = "Max";
        report.pilots[i].country = countries[i];
    }
    report.pilots[2].human = 1;
    EXPECT_EQ(report.mapPilots(), 2);
    EXPECT_EQ(report.pilots[0].pilot, 1);
    EXPECT_EQ(report.pilots[1].pilot, 0);
    EXPECT_EQ(report.pilots[2].pilot, -1);
    EXPECT_EQ(lines.linesWith(" w "), 1) << "the human flew under no name of the plan";
    EXPECT_TRUE(lines.holds("The player's plane in the log, \"Max\", belongs to nobody"));
}

TEST(CombatReport, IsReachableWhileItLives) {
    EXPECT_EQ(CombatReport::instance(), nullptr);
    {
        CombatReport report;
        EXPECT_EQ(CombatReport::instance(), &report);
        EXPECT_FALSE(report.applyToCareer()) << "there is no career";
    }
    EXPECT_EQ(CombatReport::instance(), nullptr);
}

TEST(CombatReport, CarriesTheMissionIntoTheCareer) {
    const SmallWorld world;
    Database career;
    const int32_t squadron = emptySquadron(career, France);
    for (const int32_t shotdowns : {3, 65534, 0, 9})
        addPilot(career, squadron, "P", {5, shotdowns, shotdowns});
    CombatReport report;
    EXPECT_FALSE(report.applyToCareer());
    report.pilots.resize(5);
    for (const int32_t pilot : {0, 1, 2})
        report.pilots[static_cast<size_t>(pilot)].pilot = pilot;
    report.pilots[0].kills = {3, 4};
    report.pilots[1].kills = {3, 4, 4};
    report.pilots[2].dead = 1;
    report.pilots[2].kills = {3}; // also a dead man's victories count
    report.pilots[3].dead = 1;    // a gun
    report.pilots[4].pilot = 77;  // nobody of this career
    EXPECT_TRUE(report.applyToCareer());
    const int32_t expected[][3] = {{5, 4, 1}, {65535, 65535, 1}, {1, 1, 0}, {9, 9, 1}};
    for (size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(career.pilots[i].shotdowns, expected[i][0]) << i;
        EXPECT_EQ(career.pilots[i].missions, expected[i][1]) << i;
        EXPECT_EQ(career.pilots[i].alive, expected[i][2]) << i;
    }
}

} // namespace
