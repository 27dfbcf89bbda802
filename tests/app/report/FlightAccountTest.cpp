#include "app/report/FlightAccount.h"

#include <gtest/gtest.h>

#include "app/report/CombatReport.h"
#include "tests/app/report/FlightLog.h"

namespace {

std::string text(const FlightEvent& event) {
    constexpr const char* Names[] = {"hit",   "damage",   "wound",   "kill",    "crash",
                                     "death", "take-off", "landing", "position"};
    char line[80];
    std::snprintf(line, sizeof line, "%.2f %s %d>%d", double{event.seconds},
                  Names[static_cast<size_t>(event.kind)], event.actor, event.target);
    return line;
}

// The times are the log's ticks divided by 50. The reports are, in the order in which the log names
// them: Sommer, Reed, Hall, Brandt and the gun on the ground.
TEST(FlightAccount, HoldsWhatTheLogSays) {
    MissionGenerator generator;
    generator.plan = flightPlan();
    CombatReport report;
    for (const std::string& piece : FlightPieces)
        report.lines.add(piece);
    ASSERT_TRUE(report.analyse());
    const FlownMission flown = accountOf(report, generator, "log[0].txt");
    std::vector<std::string> events;
    for (const FlightEvent& event : flown.events)
        events.push_back(text(event));
    const std::vector<std::string> expected = {
        "1.16 position 0>-1", "49.60 hit 0>1",  "49.60 damage 0>1",   "54.22 wound 0>1",
        "57.00 damage 0>1",   "57.00 kill 0>1", "62.40 kill 2>3",     "66.04 wound 2>0",
        "67.54 death -1>3",   "68.02 hit 4>0",  "180.40 landing 0>-1"};
    EXPECT_EQ(events, expected);
    ASSERT_EQ(flown.events.size(), expected.size());
    const FlightEvent& kill = flown.events[5];
    EXPECT_TRUE(kill.hasPosition && kill.x == 211655.0F && kill.y == 1320.625F &&
                kill.z == 62790.0F);
    const FlightEvent& landing = flown.events[10];
    EXPECT_TRUE(landing.hasPosition && landing.z == 66120.75F) << "blanks after the commas";
    EXPECT_FALSE(flown.events[1].hasPosition) << "the log has no place for hits";
    EXPECT_FLOAT_EQ(flown.seconds, 186.26F);
    ASSERT_EQ(flown.plan.size(), 4U);
    EXPECT_EQ(flown.plan[0].name, "Erich Sommer");
    EXPECT_EQ(flown.fates.size(), flown.reports.size());
}

// Hits, damage and positions are many; what happens to men and planes never is.
TEST(FlightAccount, DropsOnlyWhatIsMany) {
    MissionGenerator generator;
    generator.plan = flightPlan();
    for (PlannedPlane& plane : generator.plan)
        plane.skill = plane.shotdowns = plane.missions = 0;
    CombatReport report;
    report.lines.add(FlightPieces[0]);
    std::string more;
    for (int32_t second = 100; second < 2600; ++second)
        more += "T:" + std::to_string(second * 50) + " AType:1 AMMO:X AID:20479 TID:20479\r\n";
    for (const char* line :
         {"AType:2 DMG:0.1 AID:-1 TID:20479 POS(1,2,3)", "AType:17 ID:20479 POS(1,2,3)",
          "AType:2 DMG:0.1 AID:-1 TID:21503 POS(1,2,3)", "AType:5 PID:20479 POS(1,2,3)",
          "AType:6 PID:20479 POS(1,2,3)", "AType:3 AID:-1 TID:20479 POS(1,2,3)"})
        more += "T:140000 " + std::string(line) + "\r\n";
    report.lines.add(more);
    static_cast<void>(report.analyse()); // the log has no end
    const FlownMission flown = accountOf(report, generator, "log[0].txt");
    std::string ends;
    for (size_t i = MostFlightEvents; i < flown.events.size(); ++i)
        ends += text(flown.events[i]) + "; ";
    EXPECT_EQ(ends, "2800.00 wound -1>0; 2800.00 take-off 0>-1; 2800.00 landing 0>-1; "
                    "2800.00 crash -1>0; ");
    std::string levels;
    for (const FlightPlane& plane : flown.plan)
        levels += std::to_string(plane.level) + " ";
    EXPECT_EQ(levels, "0 3 3 3 ") << "beginners are raised until one is worth a fight";
}

} // namespace
