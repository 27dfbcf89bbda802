// Orders that outlive the program that gave them. A Session is a run of the program; what is in the
// folder while it lives is what remains if it is killed.
#include <filesystem>
#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include "app/mission/Configuration.h"
#include "app/mission/DailyMission.h"
#include "app/record/Sqlite.h"
#include "standin/StandIn.h"
#include "tests/support/PinnedRun.h"
#include "tools/career/Session.h"

namespace fs = std::filesystem;

namespace {

/// A saved career in December 1915, whose next mission isn't written.
struct OrdersTest : testing::Test {
    OrdersTest() {
        tools::Finding finding;
        EXPECT_TRUE(standin::makeSimulatorFolder(run.simulatorFolder(), finding));
        begin();
        EXPECT_TRUE(session->newCareer({ServiceGerman, 1915, 12}) && session->save());
    }
    /// Ends the run of the program, if there is one, and starts another.
    Session& begin(bool keepsRecord = true) {
        session.reset();
        session = std::make_unique<Session>(true, 0, keepsRecord);
        return *session;
    }
    Session& beginAndLoad() {
        EXPECT_TRUE(begin().load()) << session->problem().c_str();
        return *session;
    }
    /// The one before is killed: the folder is as it was while it ran.
    Session& killAndLoad() {
        const std::string user = run.userFolder();
        fs::copy(user, user + "2", fs::copy_options::recursive);
        session.reset();
        fs::remove_all(user);
        fs::rename(user + "2", user);
        return beginAndLoad();
    }
    static void choose(const zel::String& folder) {
        Configuration::reset();
        Configuration::set("rof.directory", folder);
    }
    int32_t date() const { return Database::instance()->calendar().dateNumber(); }
    void expectReported(Session& by, const char* what) {
        const Database& career = *Database::instance();
        const int32_t player = career.playerPilot; // he may fall
        const int32_t missions = career.player().missions;
        EXPECT_TRUE(by.report()) << what << ": " << by.problem().c_str();
        EXPECT_EQ(career.pilot(player).missions, missions + 1) << what;
    }
    void expectProblem(bool result, const char* part) const {
        EXPECT_FALSE(result) << part;
        EXPECT_NE(session->problem().view().find(part), std::string::npos)
            << session->problem().c_str();
    }
    /// What the command prints.
    std::string printed(bool (Session::*command)()) {
        session.reset();
        session = std::make_unique<Session>(false, 0);
        testing::internal::CaptureStdout();
        EXPECT_TRUE(session->load() && ((*session).*command)());
        return testing::internal::GetCapturedStdout();
    }
    /// What the statement gives for the file on the disk.
    int64_t number(const char* sql) const {
        SqliteFile file;
        file.open(run.userFolder() + "/Saves/record.db", SqliteFile::MustExist);
        const int64_t result = file.number(sql);
        EXPECT_FALSE(file.failed()) << file.problem().c_str();
        return result;
    }

    PinnedRun run{5}; // in which the player survives the first flight
    std::unique_ptr<Session> session;
};

// Plan and position decide every figure and name in it.
TEST_F(OrdersTest, GiveTheSameReportInALaterRun) {
    const auto flightTables = [&] {
        EXPECT_TRUE(session->exportRecord(run.folder.file("record.json")));
        const std::string json = run.folder.read("record.json");
        const size_t start = json.find("\"flight\": [");
        return json.substr(start, json.find("\"victory\": [") - start);
    };
    begin();
    ASSERT_TRUE(session->load() && session->mission() && session->fly());
    const std::string user = run.userFolder();
    fs::copy(user, user + "2", fs::copy_options::recursive);
    expectReported(*session, "at once");
    const std::string expected = flightTables();
    EXPECT_NE(expected.find("\"kind\":\"hit\""), std::string::npos);
    session.reset();
    fs::remove_all(user);
    fs::rename(user + "2", user);
    expectReported(beginAndLoad(), "after a crash");
    EXPECT_EQ(flightTables(), expected);
}

// The table of docs/manual.md.
TEST_F(OrdersTest, HaveADefinedEnd) {
    const int32_t day = date();
    beginAndLoad();
    expectProblem(session->report(), "mission comes before report");
    ASSERT_TRUE(session->mission());
    expectProblem(session->report(), "No log of your flight has come yet");

    ASSERT_TRUE(killAndLoad().fly() && session->mission());
    expectReported(killAndLoad(), "written again after the flight");
    expectProblem(session->report(), "mission comes before report");
    EXPECT_GT(date(), day);
    ASSERT_TRUE(session->mission());
    const int32_t later = date();

    EXPECT_NE(printed(&Session::status).find("Orders: those of 1-December-1915 are out"),
              std::string::npos)
        << "those of the later day end with the career that wasn't saved";
    EXPECT_TRUE(run.lines.holds("The orders of " + std::to_string(later) + " are void"))
        << run.lines.text();
    ASSERT_TRUE(beginAndLoad().save());
    EXPECT_EQ(number("SELECT max(date) FROM orders"), day)
        << "the war may come to the later day again";
    expectReported(killAndLoad(), "reported before, and saved only without the report");
    ASSERT_TRUE(session->save());
    expectProblem(beginAndLoad().report(), "mission comes before report");
    ASSERT_TRUE(session->mission() && session->advance(1) && session->save());
    expectProblem(beginAndLoad().report(), "void, as the war has moved on");
    EXPECT_EQ(run.lines.linesWith("was reported before"), 0) << "the logs known say so already";
}

TEST_F(OrdersTest, CarryNoLogIntoTheCareerTwice) {
    ASSERT_TRUE(beginAndLoad().mission() && session->fly());
    for (const auto& entry : fs::directory_iterator(run.folder.file("sim/data"))) {
        const std::string name = "sim/data/" + entry.path().filename().string();
        std::string text = run.folder.read(name);
        if (const size_t date = text.find("GDate:"); date != text.npos)
            run.folder.write(name, text.erase(date, 6)); // or the day alone would decide
    }
    ASSERT_TRUE(session->report() && session->save());
    ASSERT_TRUE(session->mission());
    session.reset();
    number("DELETE FROM orders_log"); // as if it had come after the orders
    expectProblem(beginAndLoad().report(), "No log");
    EXPECT_EQ(run.lines.linesWith("was reported before"), 1) << run.lines.text();
    ASSERT_TRUE(session->fly());
    expectReported(*session, "the log of these orders");
}

// Its flights are cut off, its orders aren't.
TEST_F(OrdersTest, ComeBackWithAnEarlierPage) {
    const int32_t day = date();
    ASSERT_TRUE(beginAndLoad().mission() && session->fly() && session->report() && session->save());
    session.reset();
    const std::string save = run.userFolder() + "/Saves/savegame_v03.wty";
    const std::string page = run.folder.read("user/Saves/savegame_v03.wty.bak");
    for (const bool fliesAgain : {false, true}) {
        run.folder.write("user/Saves/savegame_v03.wty", page);
        beginAndLoad();
        ASSERT_EQ(date(), day);
        if (fliesAgain) {
            ASSERT_TRUE(session->mission());
            killAndLoad();
            expectProblem(session->report(), "No log");
            ASSERT_TRUE(session->fly());
        }
        expectReported(*session, fliesAgain ? "another flight" : "the same flight");
        ASSERT_TRUE(session->save());
        session.reset();
        EXPECT_EQ(number("SELECT count(*) FROM flight"), 1);
    }
}

TEST_F(OrdersTest, EndWithTheProgramWhereNothingCanBeWritten) {
    begin(false);
    ASSERT_TRUE(session->load() && session->mission() && session->fly());
    expectReported(*session, "without a record");
    ASSERT_TRUE(begin(false).load());
    expectProblem(session->report(), "mission comes before report");

    ASSERT_TRUE(beginAndLoad().load());
    {
        SqliteFile other;
        ASSERT_TRUE(other.open(run.userFolder() + "/Saves/record.db", SqliteFile::MustExist) &&
                    other.run("BEGIN IMMEDIATE"));
        ASSERT_TRUE(session->mission() && session->fly());
        EXPECT_TRUE(run.lines.holds("The record of the war can't be used")) << run.lines.text();
    }
    ASSERT_TRUE(session->save()) << "and keeps them, since it can";
    expectReported(killAndLoad(), "kept by the save");

    session.reset();
    fs::remove(run.userFolder() + "/Saves/record.db");
    ASSERT_TRUE(beginAndLoad().mission() && session->fly());
    expectReported(killAndLoad(), "of a career whose record was missing");
    ASSERT_TRUE(session->newCareer({ServiceFrench, 1915, 12}) && session->mission() &&
                session->fly() && session->save());
    expectReported(killAndLoad(), "of a career whose first save came after them");
}

TEST_F(OrdersTest, KnowTheLogsOfAnotherFolder) {
    const std::string other = run.folder.file("other");
    ASSERT_TRUE(beginAndLoad().mission() && session->fly());
    fs::copy(run.simulatorFolder(), other, fs::copy_options::recursive);
    choose(other);
    expectReported(killAndLoad(), "in a folder that has the mission");
    fs::remove(other + "/data/Missions/" + MissionFileName);
    expectProblem(beginAndLoad().report(), "No log of your flight has come yet");
    choose(run.simulatorFolder());
    expectReported(*session, "in the folder of the orders, which was left and chosen again");

    ASSERT_TRUE(beginAndLoad().fly());
    choose(other);
    ASSERT_TRUE(session->mission());
    expectProblem(session->report(), "No log of your flight has come yet");
    ASSERT_TRUE(session->fly());
    expectReported(killAndLoad(), "flown in the other folder");
    choose(run.simulatorFolder());
    expectReported(beginAndLoad(), "flown in the first one before");
    session.reset();
    number("UPDATE orders SET folder = NULL");
    choose(other);
    fs::remove(other + "/data/Missions/" + MissionFileName);
    expectReported(beginAndLoad(), "orders of an earlier program");
}

// A flight there is of another career, even after a look there.
TEST_F(OrdersTest, KnowTheLogsOfAFolderWithoutTheirMission) {
    const std::string other = run.folder.file("other");
    const std::string mission = other + "/data/Missions/" + MissionFileName;
    ASSERT_TRUE(beginAndLoad().mission());
    fs::copy(run.simulatorFolder(), other, fs::copy_options::recursive);
    fs::rename(mission, mission + ".away");
    choose(other);
    expectProblem(session->report(), "No log of your flight has come yet");
    choose(run.simulatorFolder());
    ASSERT_TRUE(session->mission());
    choose(other);
    fs::rename(mission + ".away", mission);
    ASSERT_TRUE(session->fly());
    fs::remove(mission);
    expectProblem(killAndLoad().report(), "No log of your flight has come yet");
}

// He chooses a wrong folder before the one that was moved.
TEST_F(OrdersTest, KnowTheLogsOfAFolderThatWasMoved) {
    const std::string page = run.save();
    const std::string wrong = run.folder.file("wrong");
    const std::string moved = run.folder.file("moved");
    tools::Finding finding;
    ASSERT_TRUE(standin::makeSimulatorFolder(wrong, finding));
    ASSERT_TRUE(beginAndLoad().mission() && session->fly() && session->report() && session->save());
    session.reset();
    run.folder.write("user/Saves/savegame_v03.wty", page);
    ASSERT_TRUE(beginAndLoad().mission()) << "the old flight no longer counts";
    fs::rename(run.simulatorFolder(), moved);
    for (const std::string& folder : {wrong, moved}) {
        choose(folder);
        expectProblem(session->report(), "No log of your flight has come yet");
    }
    ASSERT_TRUE(session->fly());
    expectReported(*session, "flown again");
}

TEST_F(OrdersTest, KeepTheCareerAsItIs) {
    const std::string save = run.save();
    ASSERT_TRUE(beginAndLoad().mission() && session->mission() && session->save());
    EXPECT_TRUE(run.save() == save);
    const std::string mission = std::string("sim/data/Missions/") + MissionFileName;
    const auto status = [&] { return printed(&Session::status); };
    EXPECT_EQ(status().find("changed"), std::string::npos);
    run.folder.write(mission, run.folder.read(mission) + " ");
    EXPECT_NE(status().find("changed since the orders"), std::string::npos);
    fs::remove(run.folder.file(mission));
    EXPECT_NE(status().find("which is gone"), std::string::npos);
}

} // namespace
