#include "app/report/Outcome.h"

#include <map>
#include <sstream>
#include <tuple>

#include <gtest/gtest.h>

#include "app/report/CombatReport.h"
#include "app/report/FlightAccount.h"
#include "tests/support/HandMade.h"
#include "tests/support/Printers.h"
#include "tests/support/Texts.h"

namespace {

// Tests only where one text ends and the next begins, and what overrides what.
TEST(Outcome, HasThePilotsFate) {
    const struct {
        int32_t killed, dead, percent;
        float damage;
        int32_t status, by;
        const char* text;
    } cases[] = {
        {2, 0, 0, 0, 0, -1, "Died in the air"},
        {0, 1, 98, 1, 1, 0, "Crashed and died"},
        {0, 0, 51, 1, 1, 0, "Severe injuries"},
        {0, 0, 50, 1, 1, 0, "Injured"},
        {0, 0, 26, 0, 0, -1, "Injured"},
        {0, 0, 25, 1, 1, 0, "Slightly injured"},
        {0, 0, 0, 0.49F, 1, 0, "Landed with damaged plane"},
        {0, 0, 0, 0.5F, 1, 0, "Landed with destroyed plane"},
        {0, 0, 0, 0.01F, 2, 0, "Damaged plane"},
        {0, 0, 0, 0.5F, 0, -1, "Destroyed plane"},
        {0, 0, 0, 0.009F, 1, 0, "Escaped and landed"},
        {0, 0, 0, 0.009F, 2, 0, "Survived without injuries"},
        {0, 0, 0, -0.7F, 2, -1, "No damage"},
    };
    for (const auto& [killed, dead, percent, damage, status, by, text] : cases) {
        std::vector<PilotReport> reports(1);
        PilotReport& pilot = reports.front();
        std::tie(pilot.killCount, pilot.dead, pilot.injuryPercent, pilot.damage, pilot.flightStatus,
                 pilot.shotdownBy) = std::tie(killed, dead, percent, damage, status, by);
        EXPECT_EQ(Outcomes(reports, {}).of(0).fate, text)
            << percent << ' ' << damage << ' ' << status;
    }
}

const std::map<std::string, std::string> EventLines = {
    {"hit", " AType:1 AMMO:x AID:{actor} TID:{target}\n"},
    {"damage", " AType:2 DMG:0.6 AID:{actor} TID:{target}\n"},
    {"deadly", " AType:2 DMG:0.98 AID:{actor} TID:{target}\n"},
    {"end", " AType:3 AID:{actor} TID:{target}\n"},
    {"land", " AType:6 PID:{target} POS(1,2,3)\n"},
};

/// A log of Sommer, who is the player, his wing man Brandt, the enemies Reed and Hall, a third one
/// whom the plan doesn't know, and a gun. They are objects 10, 20 and so on, their bodies 11, 21.
/// Events are "SECONDS KIND ACTOR TARGET" each, "-1" for nobody.
std::string logOf(const std::string& events) {
    const std::pair<const char*, int32_t> planes[] = {
        {"Erich Sommer/7", Germany}, {"Kurt Brandt", Germany}, {"Albert Reed", England},
        {"Ernest Hall", England},    {"Stranger", England},    {"gun", England}};
    std::ostringstream text;
    int32_t id = 10;
    for (const auto& [name, country] : planes) {
        text << "T:5 AType:12 ID:" << id << " TYPE:" << (id == 60 ? "LMG08AAA" : "SE5a")
             << " COUNTRY:" << country << " NAME:" << name << " PID:-1\n"
             << "T:5 AType:12 ID:" << id + 1 << " TYPE:Common Bot COUNTRY:" << country
             << " NAME: PID:" << id << "\n";
        id += 10;
    }
    text << "T:5 AType:10 PLID:10 PID:11\n";
    std::istringstream words(events);
    std::string kind, actor, target;
    for (int32_t seconds = 0; words >> seconds >> kind >> actor >> target;)
        text << "T:" << seconds * 50
             << filled(EventLines.at(kind), {{"actor", actor}, {"target", target}});
    return text.str();
}

// Runs the rules of the report, so that a reason that doesn't follow them fails. A row of the file
// is events, the place of a plane in the list above, the cause of its loss and the reason.
TEST(Outcome, GivesItsReason) {
    std::istringstream rows(fileText(FLIGHT_FOLDER "/reasons.txt"));
    int32_t count = 0;
    for (std::string row; std::getline(rows, row); ++count) {
        std::vector<zel::String> cells;
        zel::String(row).split("|", cells);
        ASSERT_EQ(cells.size(), 4U) << row;
        MissionGenerator generator;
        generator.plan = {plannedPlane(0, "Erich Sommer", Germany, {0, 7, 0}),
                          plannedPlane(1, "Kurt Brandt", Germany),
                          plannedPlane(2, "Albert Reed", England),
                          plannedPlane(3, "Ernest Hall", England)};
        CombatReport report;
        const std::string text = logOf(cells[0].c_str());
        report.lines.add(text);
        static_cast<void>(report.analyse());
        const FlownMission flown = accountOf(report, generator, "log");
        const auto place = static_cast<size_t>(cells[1].toInt());
        const Outcome outcome = Outcomes(flown.reports, flown.events).of(place);
        EXPECT_EQ(outcome.cause, cells[2]) << row;
        EXPECT_EQ(outcome.reason, cells[3]) << row;
    }
    EXPECT_EQ(count, 30);
}

// A log so long that hits were dropped isn't taken for one without hits.
TEST(Outcome, SaysLessOfACutLog) {
    std::vector<PilotReport> reports(2);
    reports[0].name = "Brandt";
    reports[1].shotDown = 1;
    std::vector<FlightEvent> events(MostFlightEvents);
    EXPECT_EQ(Outcomes(reports, events).of(1).reason,
              "Credited to nobody: the log names no victor.");
    reports[1].shotdownByOwn = 0;
    EXPECT_EQ(Outcomes(reports, events).of(1).reason, "Own side: last hit by Brandt.");
}

} // namespace
