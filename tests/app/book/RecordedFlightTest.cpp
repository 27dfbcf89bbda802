#include "app/book/RecordedFlight.h"

#include <gtest/gtest.h>

#include "app/report/CombatReport.h"
#include "app/report/FlightAccount.h"
#include "app/report/Outcome.h"
#include "tests/app/book/HandMadeRecord.h"
#include "tests/app/report/FlightLog.h"
#include "tests/support/Printers.h"

namespace {

/// The whole made-up flight, as the report reads it.
FlownMission flownFlight() {
    MissionGenerator generator;
    generator.plan = flightPlan();
    CombatReport report;
    for (const std::string& piece : FlightPieces)
        report.lines.add(piece);
    static_cast<void>(report.analyse());
    return accountOf(report, generator, "log[0].txt");
}

// The record reproduces the report, its reasons and the positions of its events.
TEST(RecordedFlight, ComesBackAsItWasFlown) {
    const FlownMission flown = flownFlight();
    HandMadeRecord record;
    record.addFlight(19170601, flown.plan) = flown;
    record.addFlight(19170609, flown.plan);
    EXPECT_EQ(readFlight(record.tables())->number, 2);
    const std::optional<RecordedFlight> again = readFlight(record.file, 1);
    ASSERT_TRUE(again) << record.file.problem().c_str();
    EXPECT_EQ(again->date, 19170601);
    EXPECT_EQ(again->base, "Douai");
    const FlownMission& mission = again->mission;
    ASSERT_EQ(mission.reports.size(), flown.reports.size());
    ASSERT_EQ(mission.events.size(), flown.events.size());
    const Outcomes before(flown.reports, flown.events);
    const Outcomes after(mission.reports, mission.events);
    for (size_t i = 0; i < mission.reports.size(); ++i) {
        EXPECT_EQ(after.of(i).fate, mission.fates[i]);
        EXPECT_EQ(after.of(i).cause, mission.causes[i]);
        EXPECT_EQ(after.of(i).reason, before.of(i).reason);
        EXPECT_EQ(mission.reports[i].kills, flown.reports[i].kills);
    }
    for (size_t i = 0; i < mission.events.size(); ++i) {
        EXPECT_EQ(mission.events[i].kind, flown.events[i].kind) << i;
        EXPECT_EQ(mission.events[i].hasPosition, flown.events[i].hasPosition) << i;
        EXPECT_EQ(mission.events[i].z, flown.events[i].z) << i;
    }
}

TEST(RecordedFlight, IsNothingWhereThereIsNone) {
    HandMadeRecord record;
    EXPECT_FALSE(readFlight(record.tables()));
    record.addFlight(19170601, {{0, 0, "Erich Sommer", "albatrosd3", Germany, 1}});
    EXPECT_FALSE(readFlight(record.tables(), 2));
    EXPECT_FALSE(record.file.failed());
    // A damaged record names places that the flight doesn't have.
    record.file.run(
        "UPDATE flight_report SET shot_down = 1, shot_down_by = 7, shot_down_by_own = 9");
    record.file.run("INSERT INTO flight_event VALUES(1,0,5,'hit',4,0,1,NULL,NULL,NULL),"
                    "(1,1,5,'what',0,0,1,NULL,NULL,NULL)");
    const std::optional<RecordedFlight> flight = readFlight(record.file, 1);
    ASSERT_TRUE(flight);
    EXPECT_EQ(flight->mission.events.size(), 1U);
    EXPECT_EQ(Outcomes(flight->mission.reports, flight->mission.events).of(0).cause, "Crashed");
}

} // namespace
