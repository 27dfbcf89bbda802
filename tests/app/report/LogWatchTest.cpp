#include "app/report/LogWatch.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "app/career/CareerLock.h"
#include "app/mission/Configuration.h"
#include "app/report/Flight.h"
#include "engine/core/Clock.h"
#include "tests/app/report/FlightLog.h"
#include "tests/support/HeldFile.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

namespace {

using Names = std::vector<zel::String>;

uint32_t now = 0; // of a clock that a test moves, in milliseconds

/// A career of twenty pilots, the flight's among them, and the simulator's data folder.
struct LogWatchTest : testing::Test {
    LogWatchTest() {
        squadronOf(career, France, std::vector<int32_t>(20, 0));
        flight.generator().plan = flightPlan();
        Configuration::reset();
        Configuration::set("rof.directory", world.folder.path());
        write("missionReport(old)[0].txt", FlightPieces[0]);
        begin();
    }
    ~LogWatchTest() override { Configuration::reset(); }

    void begin() { EXPECT_EQ(watch.begin(data), zel::FileFault::None); }
    void write(const std::string& name, const std::string& text) {
        world.folder.write("data/" + name, text);
    }
    void writePiece(const std::string& log, int32_t piece) {
        write(log + "[" + std::to_string(piece) + "].txt", FlightPieces[size_t(piece)]);
    }
    void writeFlight(const std::string& log) {
        for (int32_t piece = 0; piece < 4; ++piece)
            writePiece(log, piece);
    }
    uint16_t missionsOf(size_t pilot) const { return career.pilots[pilot].missions; }

    SmallWorld world;
    LogCapture lines;
    Database career;
    Flight flight;
    CombatReport& report = flight.report();
    LogWatch& watch = flight.logs();
    const zel::String data{world.folder.path() + "/data/"};
};

TEST_F(LogWatchTest, ShowsWhatCameSinceTheMissionWasWritten) {
    EXPECT_EQ(watch.poll(data), Names{});
    writePiece("missionReport(a)", 0);
    writePiece("missionReport(b)", 1); // no first piece
    write("other.txt", "x");
    write("B[0].TXT", "x");
    EXPECT_EQ(watch.poll(data), (Names{"B[0].TXT", "missionReport(a)[0].txt"}));
    EXPECT_EQ(watch.poll(data), Names{});
    write("missionReport(old)[1].txt", "x");
    EXPECT_EQ(watch.poll(data), Names{}) << "an old log stays old";
    begin();
    writePiece("missionReport(a)", 1);
    EXPECT_EQ(watch.poll(data), Names{}) << "known when the next mission was written";
}

TEST_F(LogWatchTest, ShowsALogAgainWhenItHasGrown) {
    const Names one = {"missionReport(a)[0].txt"};
    write("missionReport(a)[0].txt", "T:0");
    EXPECT_EQ(watch.poll(data), one);
    write("missionReport(a)[0].txt", "T:0 AType:15");
    EXPECT_EQ(watch.poll(data), one) << "more bytes";
    write("missionReport(a)[1].txt", "");
    EXPECT_EQ(watch.poll(data), one) << "another piece";
    EXPECT_EQ(watch.poll(data), Names{});
    write("missionReport(a)[3].txt", "x");
    EXPECT_EQ(watch.poll(data), Names{}) << "a piece after a gap";
    watch.markAsKnown();
    write("missionReport(a)[2].txt", "x");
    EXPECT_EQ(watch.poll(data), Names{}) << "marked as known";
}

TEST_F(LogWatchTest, WaitsForTheEndOfTheFlight) {
    EXPECT_FALSE(flight.findReport(career));
    for (int32_t piece = 0; piece < 3; ++piece) {
        writePiece("missionReport(a)", piece);
        EXPECT_FALSE(flight.findReport(career));
        EXPECT_TRUE(report.pilots.empty() && report.lines.lineCount() == 0) << "nothing may show";
        EXPECT_FALSE(flight.findReport(career));
    }
    EXPECT_EQ(missionsOf(10), 9);
    EXPECT_EQ(watch.news().state, LogState::Growing);
    writePiece("missionReport(a)", 3);
    EXPECT_TRUE(flight.findReport(career));
    EXPECT_EQ(report.pilots.size(), 5u);
    for (size_t pilot = 10; pilot < 14; ++pilot)
        EXPECT_EQ(missionsOf(pilot), 10);
    EXPECT_EQ(career.pilots[10].shotdowns, 1);
    EXPECT_EQ(career.pilots[13].shotdowns, 1);
    EXPECT_EQ(career.pilots[11].alive, 0);
    EXPECT_FALSE(flight.findReport(career)) << "it is carried into the career once";
    EXPECT_EQ(missionsOf(10), 10);
}

TEST_F(LogWatchTest, PassesOverTheLogsOfOthers) {
    std::string other(FlightPieces[0]);
    other.replace(other.find("Erich Sommer"), 12, "Desk Jockey ");
    write("missionReport(a)[0].txt", other + "T:9 AType:16 BOTID:21503\n");
    write("missionReport(b)[0].txt", "no log at all\n");
    EXPECT_FALSE(flight.findReport(career));
    EXPECT_TRUE(lines.holds("no pilot of the plan has that name")) << lines.text();
    EXPECT_EQ(watch.news().state, LogState::Begun) << "the later one";
    writeFlight("missionReport(c)");
    EXPECT_TRUE(flight.findReport(career));
    EXPECT_EQ(missionsOf(10), 10);
}

// Such a log comes from a career in the same squadron, or a plane that was renamed in the
// simulator.
TEST_F(LogWatchTest, TakesTheFlightOfAStrangerAtTheLastLookOnly) {
    flight.generator().plan.push_back(plannedPlane(14, "William Late", England, {1, 0, 0}));
    zel::setTickSource([] { return now; });
    for (const bool hasOwn : {true, false}) {
        const uint16_t own = missionsOf(10);
        const uint16_t others = missionsOf(12);
        const std::string log = hasOwn ? "missionReport(a)" : "missionReport(b)";
        writePiece(log + "stopped", 0);
        for (int32_t look = 0; look < 6; ++look, now += 8000)
            EXPECT_FALSE(flight.findReport(career));
        EXPECT_EQ(watch.news().state, LogState::Stopped);
        writeFlight(log);
        std::string beginning(FlightPieces[0]);
        beginning.replace(beginning.find("Erich Sommer"), 12, "Desk Jockey ");
        write(log + "[0].txt", beginning);
        EXPECT_FALSE(flight.findReport(career) || flight.findReport(career));
        EXPECT_EQ(watch.news().state, LogState::OtherPilot);
        if (hasOwn)
            writeFlight("missionReport(own)");
        EXPECT_TRUE(flight.findReport(career, true));
        EXPECT_EQ(missionsOf(10), own + (hasOwn ? 1 : 0));
        EXPECT_EQ(missionsOf(12), others + 1);
    }
    zel::setTickSource(nullptr);
}

TEST_F(LogWatchTest, ReadsByThePlanOfItsOwnFlight) {
    Flight later;
    later.generator().plan = {plannedPlane(0, "Desk Jockey", France, {0, 0, 0})};
    writeFlight("missionReport(a)");
    EXPECT_TRUE(flight.findReport(career));
    EXPECT_EQ(missionsOf(10), 10);
}

// A pilot who was in no fight is named after the end of the mission. Whatever part of that piece a
// look finds, he has flown once it is carried into the career.
TEST_F(LogWatchTest, LeavesAnEndThatIsBeingWritten) {
    flight.generator().plan.push_back(plannedPlane(14, "William Late", England, {1, 0, 0}));
    const std::string end = FlightPieces[3] +
                            "T:9313 AType:12 ID:61439 TYPE:Sopwith Camel COUNTRY:102 "
                            "NAME:William Late PID:-1\r\nT:9313 AType:4 PLID:61439 PID:62463\r\n";
    const size_t mark = end.find("AType:16");
    ASSERT_NE(mark, end.npos);
    for (size_t length = mark; length <= end.size(); length += 4) {
        const std::string log = "missionReport(" + std::to_string(length) + ")";
        const int32_t missions = missionsOf(14);
        for (int32_t piece = 0; piece < 3; ++piece)
            writePiece(log, piece);
        write(log + "[3].txt", end.substr(0, length));
        if (!flight.findReport(career)) {
            write(log + "[3].txt", end);
            ASSERT_TRUE(flight.findReport(career)) << length;
        }
        ASSERT_EQ(missionsOf(14), missions + 1) << length;
    }
}

TEST_F(LogWatchTest, TakesAnEndThatDoesNotNameEverybodyOnceItStopsGrowing) {
    flight.generator().plan.push_back(plannedPlane(14, "William Late", England, {1, 0, 0}));
    writeFlight("missionReport(a)");
    EXPECT_FALSE(flight.findReport(career));
    EXPECT_EQ(watch.news().state, LogState::Ending);
    write("missionReport(a)[4].txt", "T:0 AType:15 VER:18\n");
    EXPECT_FALSE(flight.findReport(career)) << "it grows";
    EXPECT_TRUE(flight.findReport(career));
    EXPECT_EQ(missionsOf(10), 10);
    writeFlight("missionReport(b)");
    EXPECT_TRUE(flight.findReport(career, true)) << "the player doesn't wait";
}

TEST_F(LogWatchTest, TakesTheFirstFinishedOfTwo) {
    writePiece("missionReport(a)", 0);
    writeFlight("missionReport(b)");
    writeFlight("missionReport(c)");
    EXPECT_TRUE(flight.findReport(career));
    EXPECT_EQ(missionsOf(10), 10);
    write("missionReport(c)[4].txt", "T:0 AType:15 VER:18\n");
    for (int32_t piece = 1; piece < 4; ++piece)
        writePiece("missionReport(a)", piece);
    EXPECT_FALSE(flight.findReport(career)) << "the rest is settled, whatever happens to it";
    EXPECT_EQ(missionsOf(10), 10);
    Configuration::reset();
    Configuration::set("rof.directory", world.folder.path() + "/nowhere");
    EXPECT_FALSE(flight.findReport(career)) << "there is no such folder";
}

TEST_F(LogWatchTest, KeepsTheLogsItKnowsWhileTheFolderIsAway) {
    const std::string there = world.folder.path();
    // Windows doesn't move a program's working folder.
    std::filesystem::current_path(std::filesystem::temp_directory_path());
    std::filesystem::rename(there, there + ".away");
    EXPECT_EQ(watch.poll(data), Names{});
    EXPECT_EQ(watch.begin(data), zel::FileFault::Missing);
    const DailyMission mission = flight.begin(career);
    EXPECT_EQ(mission.fault, MissionFault::LogsUnlisted) << mission.problem.c_str();
    EXPECT_EQ(mission.reason, zel::FileFault::Missing);
    std::filesystem::rename(there + ".away", there);
    EXPECT_EQ(watch.poll(data), Names{}) << "an old report would be carried into the career again";
}

TEST_F(LogWatchTest, WritesNoMissionForACareerOfAnotherProgram) {
    CareerLock lock;
    career.lock = &lock;
    career.isReadOnly = true;
    EXPECT_EQ(flight.begin(career).fault, MissionFault::CareerHeld);
    EXPECT_FALSE(
        std::filesystem::exists(world.folder.file("data/Missions/WingtallyMission.Mission")));
    career.isReadOnly = false;
    career.lock = nullptr;
}

TEST_F(LogWatchTest, ReadsAPieceAgainThatSomebodyHeld) {
    uint16_t missions = 9;
    for (const int32_t piece : {0, 2, 3}) {
        const std::string log = "missionReport(" + std::to_string(piece) + ")";
        writeFlight(log);
        HeldFile held(world.folder.file("data/" + log + "[" + std::to_string(piece) + "].txt"));
        if (!held.isHeld())
            GTEST_SKIP() << "no file can be held here";
        for (int32_t looks = 1; looks <= 3; ++looks) {
            EXPECT_FALSE(flight.findReport(career));
            EXPECT_TRUE(report.pilots.empty() && report.lines.lineCount() == 0) << "half a flight";
            EXPECT_EQ(watch.news().state, LogState::Unread);
            write(log + "other[0].txt", "MFile:other.mission"); // it hides nothing
            EXPECT_EQ(watch.resume(data), zel::FileFault::None);
        }
        held.release();
        EXPECT_TRUE(flight.findReport(career)) << "although no byte was added";
        EXPECT_EQ(missionsOf(10), ++missions);
    }
    EXPECT_EQ(lines.linesWith("cannot be read"), 9);
}

TEST_F(LogWatchTest, TakesAFolderInAPiecesPlaceForTheEnd) {
    writeFlight("missionReport(a)");
    write("missionReport(a)[4].txt/x", "");
    EXPECT_TRUE(flight.findReport(career));
    EXPECT_EQ(lines.linesWith("cannot be read"), 0);
}

#ifdef _WIN32
TEST_F(LogWatchTest, KeepsWhatItKnowsWhileTheFolderIsHeld) {
    writeFlight("missionReport(a)");
    HeldFile held(world.folder.file("data"));
    ASSERT_TRUE(held.isHeld());
    const bool isFound = flight.findReport(career);
    static_cast<void>(watch.begin(data));
    held.release();
    EXPECT_NE(flight.findReport(career), isFound) << "found once, whether the folder could be read";
    EXPECT_EQ(missionsOf(10), 10);
}
#endif

} // namespace
