#include "app/report/CombatReport.h"

#include <gtest/gtest.h>

#include "tests/app/report/FlightLog.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

namespace {

/// The texts between commas.
std::vector<zel::String> parted(const std::string& text) {
    std::vector<zel::String> parts;
    zel::String(text).split(",", parts);
    return parts;
}

/// The planned pilots found for the names of a log, all of one nation; -1 for none.
std::string mapped(const std::string& planned, const std::string& logged) {
    MissionGenerator generator;
    for (const zel::String& name : parted(planned))
        generator.plan.push_back(plannedPlane(int32_t(generator.plan.size()), name.view(), France));
    CombatReport report;
    for (const zel::String& name : parted(logged)) {
        PilotReport& record = report.pilots.emplace_back();
        record.name = name;
        record.country = France;
    }
    int32_t matches = report.mapPilots();
    std::string pilots;
    for (const PilotReport& record : report.pilots) {
        pilots += (pilots.empty() ? "" : " ") + std::to_string(record.pilot);
        matches -= record.pilot >= 0;
    }
    EXPECT_EQ(matches, 0);
    return pilots;
}

TEST(CombatReport, FindsPilotsByTheirNames) {
    const LogCapture lines;
    const struct {
        const char *planned, *logged, *pilots, *what;
    } cases[] = {
        {"Luc Noir,Jean Petit", "Jean Petit/12,Luc Noir,gun", "1 0 -1", "in another order"},
        {"Luc Noir", "Luc Noi,Luc Noirs,luc noir", "-1 -1 -1", "by the whole name"},
        {"Luc Noir/a", "Luc Noir/6", "0", "cut in front of the stroke"},
        {"/Luc", "/Luc", "0", "nothing precedes the stroke"},
        {" Luc ", "Luc", "0", "without blanks around it"},
        {"Luc \"Ace\" Noir", "Luc 'Ace' Noir/7", "0", "missions hold no quotes"},
        {"", "Luc Noir", "-1", "nobody is planned"},
        {"Luc Noir", "Luc Noir,Luc Noir", "0 0", "one plan, two records"},
        {"Luc Noir,Max,Luc Noir,Luc Noir", "Luc Noir/9,Luc Noir,Max,Luc Noir/6", "0 2 1 3",
         "namesakes in turn"},
        {"Luc Noir,Luc Noir", "Luc Noir", "0", "namesakes, of whom one flew"},
        {"Luc Noir,Luc Noir", "Luc Noir,Luc Noir,Luc Noir", "0 1 -1", "namesakes and a third"},
        {"Jean-Baptiste de la Montgolfiere I,Jean-Baptiste de la Montgolfiere II",
         "Jean-Baptiste de la Montgolfier,Jean-Baptiste de la Montgolfier", "0 1",
         "the log has cut off the difference"},
        {"Jean-Baptiste Auguste Montgolf de la Tour", "Jean-Baptiste Auguste Montgolf", "0",
         "the log's value loses the blank at the cut"},
    };
    for (const auto& [planned, logged, pilots, what] : cases)
        EXPECT_EQ(mapped(planned, logged), pilots) << what;
}

// The simulator cuts at 31 characters, and the victories with the rest.
TEST(CombatReport, FindsPilotsByTheStartOfTheirNames) {
    const LogCapture lines;
    for (const size_t length : {27u, 28u, 29u, 30u, 31u, 32u, 40u}) {
        const std::string name = std::string("Jean-Baptiste Montgolfier de la Tour du Pin", length);
        for (const char* victories : {"", "/7", "/12", "/123"})
            EXPECT_EQ(mapped(name, (name + victories).substr(0, 31)), "0") << length << victories;
    }
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
    EXPECT_TRUE(lines.holds("The player's plane is \"Max\" in the log, and no pilot of the plan"));
}

TEST(CombatReport, CarriesTheMissionIntoTheCareer) {
    const SmallWorld world;
    CombatReport report;
    EXPECT_EQ(CombatReport::instance(), &report);
    EXPECT_FALSE(report.applyToCareer()) << "there is no career";
    Database career;
    const int32_t squadron = emptySquadron(career, France);
    for (const int32_t shotdowns : {3, 65534, 0, 9})
        addPilot(career, squadron, "P", {5, shotdowns, shotdowns});
    EXPECT_FALSE(report.applyToCareer()) << "nobody flew";
    report.pilots.resize(5);
    for (const int32_t pilot : {0, 1, 2})
        report.pilots[pilot].pilot = pilot;
    report.pilots[0].kills = {3, 4};
    report.pilots[1].kills = {3, 4, 4};
    report.pilots[2].dead = 1;
    report.pilots[2].kills = {3}; // a dead man's victories count too
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
