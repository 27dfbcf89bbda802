#include <gtest/gtest.h>

#include "app/mission/Configuration.h"
#include "app/report/Flight.h"
#include "tests/app/report/FlightLog.h"
#include "tests/support/HeldFile.h"
#include "tests/support/LogCapture.h"
#include "tests/support/SmallCareer.h"

namespace {

/// A finished flight of four pieces, which belongs to the plan, come since the watch began.
struct LogWatchHeldTest : testing::Test {
    LogWatchHeldTest() {
        squadronOf(career, France, std::vector<int32_t>(20, 0));
        flight.generator().plan = flightPlan();
        Configuration::reset();
        Configuration::set("rof.directory", world.folder.path());
        world.folder.write("data/old[0].txt", FlightPieces[0]);
        watch.begin(data);
        for (size_t piece = 0; piece < 4; ++piece)
            world.folder.write(nameOf(piece), FlightPieces[piece]);
    }
    ~LogWatchHeldTest() override { Configuration::reset(); }

    static std::string nameOf(size_t piece) {
        return "data/missionReport(a)[" + std::to_string(piece) + "].txt";
    }

    SmallWorld world;
    LogCapture lines{zel::LogInfo};
    Database career;
    Flight flight;
    CombatReport& report = flight.report();
    LogWatch& watch = flight.logs();
    const zel::String data{world.folder.path() + "/data/"};
};

struct HeldPieceTest : LogWatchHeldTest, testing::WithParamInterface<size_t> {};
INSTANTIATE_TEST_SUITE_P(Pieces, HeldPieceTest, testing::Values(0, 2, 3));

TEST_P(HeldPieceTest, IsReadAgain) {
    HeldFile held(world.folder.file(nameOf(GetParam())));
    if (!held.isHeld())
        GTEST_SKIP() << "no file can be held here";
    for (int32_t looks = 1; looks <= 2; ++looks) {
        EXPECT_FALSE(flight.findReport(career));
        EXPECT_TRUE(report.pilots.empty() && report.lines.lineCount() == 0) << "half a flight";
        EXPECT_EQ(watch.news().state, LogState::Unread);
        EXPECT_EQ(lines.linesWith("cannot be read"), looks);
    }
    held.release();
    EXPECT_TRUE(flight.findReport(career)) << "though not a byte has come";
    EXPECT_EQ(career.pilots[10].missions, 10);
    EXPECT_FALSE(flight.findReport(career));
}

TEST_F(LogWatchHeldTest, TakesAFolderInAPiecesPlaceForTheEnd) {
    world.folder.write(nameOf(4) + "/x", "");
    EXPECT_TRUE(flight.findReport(career));
    EXPECT_EQ(lines.linesWith("cannot be read"), 0);
}

#ifdef _WIN32
TEST_F(LogWatchHeldTest, KeepsWhatItKnowsWhileTheFolderIsHeld) {
    HeldFile held(world.folder.file("data"));
    ASSERT_TRUE(held.isHeld());
    const bool isFound = flight.findReport(career);
    watch.begin(data);
    held.release();
    EXPECT_NE(flight.findReport(career), isFound) << "found once, whether the folder could be read";
    EXPECT_EQ(career.pilots[10].missions, 10);
    EXPECT_FALSE(lines.holds("old[0].txt")) << "a log from before";
}
#endif

} // namespace
