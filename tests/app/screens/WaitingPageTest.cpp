// The page that waits for a flight: what it says about the logs that it finds, look by look, and
// what its buttons and keys do with a flight that has come.
#include <filesystem>
#include <map>
#include <set>
#include <sstream>

#include "app/career/Database.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "engine/window/State.h"
#include "tests/app/screens/CareerDriver.h"
#include "tests/support/HeldFile.h"

namespace {

using How = CareerDriver::How;

constexpr int32_t QuietLooks = 5; // until it gives up; the simulator writes at every fourth look
constexpr const char* Waits = "No log of your flight has come yet.";
constexpr const char* Begun = "The log of your flight has come. It isn't complete yet.";
constexpr const char* Grows = "Your flight isn't over yet: the log is still growing.";
constexpr const char* Stopped = "The log of your flight has stopped before the end. Finish the "
                                "mission in the simulator, or fly it again.";
constexpr const char* Other = "The newest log belongs to another mission, \"other\". Fly "
                              "WingtallyMission.";
constexpr const char* OtherDay = "The newest log belongs to the orders of another day. Fly "
                                 "WingtallyMission as it is now.";
constexpr const char* OtherPilot = "The newest log belongs to other orders: to-day's don't name "
                                   "its pilot, Erich Sommer/7. Fly WingtallyMission as it is now.";
constexpr const char* NoTextLog = "No log can come: the simulator's text log is off.";

struct ByNumber {
    bool operator()(const std::string& a, const std::string& b) const {
        return a.size() != b.size() ? a.size() < b.size() : a < b;
    }
};
using Pieces = std::map<std::string, std::string, ByNumber>; // of a log

class WaitingPage : public CareerScreens {
protected:
    void SetUp() override {
        ASSERT_TRUE(driver.begin("menuButton3>MenuNewYear menuButton1>MenuEnlist"));
        ASSERT_TRUE(driver.takeOff());
    }
    std::string path(const std::string& name) { return home.simulator + "/data/" + name; }
    void write(const std::string& name, const std::string& content) {
        home.folder.write(path(name), content);
    }
    /// The log's pieces and what is in them, which are then gone from the folder.
    Pieces takeLog() {
        Pieces pieces;
        for (const auto& entry : std::filesystem::directory_iterator(home.folder.file(path(""))))
            if (const std::string name = entry.path().filename().string();
                name.find("].txt") != name.npos)
                pieces[name] = home.folder.read(path(name));
        for (const auto& [name, content] : pieces)
            std::filesystem::remove(home.folder.file(path(name)));
        return pieces;
    }
    std::string afterLook() {
        driver.look();
        EXPECT_EQ(driver.state(), "MenuGameFinishMission");
        return driver.text("log");
    }
    /// Expects that line for `looks` looks, without a change of the logs.
    void expectQuietly(const std::string& line, int32_t looks) {
        for (int32_t look = 1; look <= looks; ++look)
            EXPECT_EQ(afterLook(), line) << "look " << look;
    }
    /// On the report's page.
    void expectReport() {
        EXPECT_NE(driver.text("left1").find(" - Kills: "), std::string::npos)
            << driver.text("left1");
    }
};

TEST_F(WaitingPage, SaysThatTheFlightGoesOnUntilItIsOver) {
    expectQuietly(Waits, 6);
    ASSERT_TRUE(driver.fly());
    const Pieces pieces = takeLog();
    ASSERT_GE(pieces.size(), 4U);
    auto piece = pieces.begin();
    for (const char* line : {Begun, Grows, Grows}) { // it can't know from the first look alone
        write(piece->first, piece->second);
        expectQuietly(line, 4);
        ++piece;
    }
    for (; piece != pieces.end(); ++piece)
        write(piece->first, piece->second);
    EXPECT_TRUE(driver.comeBack());
}

TEST_F(WaitingPage, SaysThatTheSimulatorStoppedInFlight) {
    ASSERT_TRUE(driver.fly());
    const Pieces pieces = takeLog();
    ASSERT_FALSE(pieces.empty());
    const auto& [first, beginning] = *pieces.begin();
    for (const size_t length : {200U, 400U}) {
        write(first, beginning.substr(0, length));
        driver.look();
    }
    EXPECT_EQ(driver.text("log"), Grows);
    for (int32_t press = 0; press < QuietLooks; ++press)
        ASSERT_TRUE(driver.go("lookNow", "MenuGameFinishMission"));
    expectQuietly(Grows, QuietLooks - 1);
    expectQuietly(Stopped, 3);
    write(first, beginning.substr(0, 600));
    EXPECT_EQ(afterLook(), Grows) << "it was only a rest";
    takeLog();
    EXPECT_EQ(afterLook(), Waits) << "it is gone";
    write(first, beginning.substr(0, 600));
    EXPECT_EQ(afterLook(), Begun) << "and back";

    ASSERT_TRUE(driver.walk("menuBack>MenuGameMain"));
    ASSERT_TRUE(driver.takeOff());
    expectQuietly(Begun, QuietLooks - 1);
    expectQuietly(Waits, 2);
    for (const auto& [name, content] : pieces)
        write("again_" + name, content);
    EXPECT_TRUE(driver.comeBack()) << "flown again";
}

// Each is the log of a finished flight with one change.
TEST_F(WaitingPage, SaysWhoseLogItIsOtherwise) {
    ASSERT_TRUE(driver.fly());
    const Pieces pieces = takeLog();
    const auto writeAs = [&](const std::string& log, const std::string& own, const char* other) {
        for (auto [name, content] : pieces) {
            if (const size_t place = content.find(own); place != content.npos)
                content.replace(place, own.size(), other);
            write(log + name, content);
        }
    };
    writeAs("1", "/WingtallyMission.mission", "/other.msnbin");
    expectQuietly(Other, 2);
    writeAs("2", "GDate:1915.12.1 ", "GDate:1915.12.2 ");
    expectQuietly(OtherDay, 2);
    writeAs("3", "NAME:" + std::string(zel::arrayText(Database::instance()->player().name)),
            "NAME:Erich Sommer/7");
    expectQuietly(OtherPilot, QuietLooks + 1);
    writeAs("4", "/WingtallyMission.", "/WINGTALLYMISSION.");
    EXPECT_TRUE(driver.comeBack());
}

TEST_F(WaitingPage, SaysWhatKeepsALogFromComing) {
    for (int32_t look = 0; look < 7; ++look)
        driver.look();
    EXPECT_EQ(driver.text("log").find("No new log for 1 min. If you have flown: "), 0U)
        << driver.text("log");
    const std::string settings = home.folder.read(path("startup.cfg"));
    write("startup.cfg", "mission_text_log = 0\n");
    EXPECT_EQ(afterLook().find(NoTextLog), 0U) << driver.text("log");
    write("startup.cfg", settings);
    EXPECT_EQ(afterLook().find("No new log for 1 min."), 0U) << driver.text("log");

    const std::string folder = home.folder.file(path(""));
    const std::string there = folder.substr(0, folder.size() - 1);
    std::filesystem::rename(there, there + ".away");
    EXPECT_EQ(afterLook().find("This folder of the simulator is gone, or can't be read: "), 0U)
        << driver.text("log");
    std::filesystem::rename(there + ".away", there);
    ASSERT_TRUE(driver.fly());
    EXPECT_TRUE(driver.comeBack());
}

TEST_F(WaitingPage, LooksAtOnceWhenItIsTold) {
    for (const How how : {How::Pointer, How::Keys}) {
        ASSERT_TRUE(driver.go("lookNow", "MenuGameFinishMission", how));
        EXPECT_EQ(driver.text("watch").find("Last look for the log at 12:00:00."), 0U);
    }
    EXPECT_EQ(driver.screens->log.linesWith("Update directory"), 2);
    ASSERT_TRUE(driver.fly());
    ASSERT_TRUE(driver.go("lookNow", "MenuGameCombatReport", How::Keys));
    expectReport();
}

TEST_F(WaitingPage, MovesTheHandOfTheWatch) {
    const auto hand = [&] { return driver.widget("hand")->getImage(zel::LookActive); };
    std::set<const zel::Image*> places;
    for (int32_t second = 0; second < 8; ++second) {
        driver.screens->step(1000);
        places.insert(hand());
    }
    EXPECT_EQ(places.size(), 8U);
    EXPECT_EQ(places.count(nullptr), 0U);
}

// Whoever presses it in the first eight seconds, or while the window has no focus, has not seen the
// report that waits for him.
TEST_F(WaitingPage, GoesOnWithoutAReportOnlyWhereThereIsNone) {
    for (const How how : {How::Pointer, How::Keys}) {
        const Pilot& player = Database::instance()->player();
        const int32_t missions = player.missions;
        ASSERT_TRUE(driver.fly());
        ASSERT_TRUE(driver.go("menuButton4", "MenuGameCombatReport", how));
        expectReport();
        EXPECT_EQ(player.missions, missions + 1);
        ASSERT_TRUE(driver.walk(
            "menuButton1>MenuGameAdvance menuButton1>MenuGameDiary menuButton1>MenuGameMain"));
        ASSERT_TRUE(driver.takeOff());
    }
    ASSERT_TRUE(driver.go("menuButton4", "MenuGameCombatReport", How::Keys));
    EXPECT_EQ(driver.text("left1"), "(No mission played.)");
}

TEST_F(WaitingPage, GoesOnWithoutAFlightThatMayStillBeReportedOnlyAtASecondPress) {
    const auto press = [&] {
        driver.screens->step(600);
        return driver.go("menuButton4", "MenuGameFinishMission") &&
               driver.text("text1").find("The war hasn't moved on") == 0;
    };
    const std::string folder = home.folder.file(home.simulator + "/data");
    std::filesystem::rename(folder, folder + ".away");
    EXPECT_TRUE(press());
    ASSERT_TRUE(driver.go("menuButton4", "MenuGameFinishMission")) << "the second of a pair";
    std::filesystem::rename(folder + ".away", folder);
    ASSERT_TRUE(driver.fly());
    const Pieces pieces = takeLog();
    const auto& [first, beginning] = *pieces.begin();
    write(first, beginning.substr(0, 200));
    driver.look();
    EXPECT_NE(driver.text("text1").find("If you do not want to fly"), std::string::npos);
    EXPECT_TRUE(press()) << "it has just come";
    write(first, beginning.substr(0, 400));
    driver.look();
    EXPECT_EQ(driver.text("log"), Grows);
    for (const auto& [name, content] : pieces)
        write(name, content);
    HeldFile held(home.folder.file(path(first)));
    if (!held.isHeld())
        GTEST_SKIP() << "no file can be held here";
    EXPECT_TRUE(press());
    EXPECT_EQ(driver.text("log"),
              "A log has come, but it can't be read: " + first + ". Another program is using it.");
    held.release();
    driver.screens->step(600);
    ASSERT_TRUE(driver.go("menuButton4", "MenuGameCombatReport"));
    expectReport();
    ASSERT_TRUE(driver.closeReport());
    ASSERT_TRUE(driver.takeOff());
    std::filesystem::rename(folder, folder + ".away");
    EXPECT_TRUE(press());
    driver.screens->step(600);
    EXPECT_TRUE(driver.go("menuButton4", "MenuGameCombatReport"));
}

// "Start Mission" was there, and the screens change slowly.
TEST_F(WaitingPage, IgnoresTheSecondPressOfAPair) {
    ASSERT_TRUE(driver.walk("menuBack>MenuGameMain"));
    zel::State::setFadeSpeed(1);
    ASSERT_TRUE(driver.takeOff());
    for (int32_t press = 0; press < 2; ++press) {
        driver.screens->press("menuButton4");
        ASSERT_TRUE(driver.screens->untilIdle("MenuGameFinishMission"));
    }
    EXPECT_FALSE(driver.widget("menuButton4")->wasHit()) << "it is drawn at rest";
    driver.screens->step(600);
    driver.screens->press("menuButton4");
    EXPECT_TRUE(driver.screens->untilIdle("MenuGameCombatReport"));
}

TEST_F(WaitingPage, HasNoDefaultForAKeyPressedTooOften) {
    for (const int32_t key : {zel::KeyReturn, zel::KeySpace}) {
        driver.screens->key(key);
        driver.screens->step();
        EXPECT_TRUE(driver.screens->untilIdle("MenuGameFinishMission"));
    }
    EXPECT_EQ(driver.text("menuBack"), "Back to the office");
    driver.screens->key(zel::KeyEscape);
    EXPECT_TRUE(driver.screens->untilIdle("MenuGameMain"));
}

// The program was killed in flight. Nobody waits eight seconds for a log that is there.
TEST(WaitingPageOfALaterRun, FindsTheLogAtOnce) {
    const PlayerHome home;
    {
        CareerDriver driver(home);
        ASSERT_TRUE(driver.begin("menuButton3>MenuNewYear menuButton1>MenuEnlist"));
        ASSERT_TRUE(driver.walk("menuBack>MenuMain menuButton2>MenuGameMain"));
        EXPECT_FALSE(driver.widget("awaitReport")->isVisible());
        ASSERT_TRUE(driver.takeOff());
        ASSERT_TRUE(driver.fly());
    }
    CareerDriver driver(home, 2);
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    ASSERT_TRUE(driver.walk("menuButton2>MenuGameMain"));
    EXPECT_EQ(driver.text("orders"), "Your orders of 1-December-1915 are out.");
    EXPECT_EQ(driver.text("menuButton1"), "New orders");
    driver.screens->menu().hitWidget("awaitReport");
    ASSERT_TRUE(driver.screens->untilIdle("MenuGameCombatReport"));
    EXPECT_NE(driver.text("left1").find(" - Kills: "), std::string::npos) << driver.text("left1");
    ASSERT_TRUE(driver.closeReport());
    EXPECT_EQ(driver.text("orders"), "");
    EXPECT_EQ(driver.text("menuButton1"), "Next Mission");
}

// In the office he sees the date unchanged and presses "Next Mission" again.
TEST_F(WaitingPage, FindsAFlightOfAMissionThatIsWrittenAgain) {
    const auto planes = [&] {
        std::string names;
        std::istringstream mission(home.mission());
        for (std::string line; std::getline(mission, line);)
            if (line.find("Name = ") != line.npos || line.find("AILevel") != line.npos)
                names += line + "\n";
        return names;
    };
    for (const bool isLookedAt : {false, true}) {
        const std::string planned = planes();
        if (isLookedAt) {
            ASSERT_TRUE(driver.fly());
            const Pieces pieces = takeLog();
            write(pieces.begin()->first, pieces.begin()->second);
            driver.look(); // in flight
            for (const auto& [name, content] : pieces)
                write(name, content);
        } else {
            ASSERT_TRUE(driver.fly());
        }
        ASSERT_TRUE(driver.walk("menuBack>MenuGameMain menuButton1>MenuGameStartMission "
                                "menuBack>MenuGameMain menuButton1>MenuGameStartMission "
                                "menuButton4>MenuGameFinishMission"));
        EXPECT_EQ(planes(), planned) << "the same plan, which the log is read by";
        const int32_t missions = Database::instance()->player().missions;
        driver.look();
        ASSERT_TRUE(driver.screens->untilIdle("MenuGameCombatReport"));
        expectReport();
        EXPECT_EQ(Database::instance()->player().missions, missions + 1);
        ASSERT_TRUE(driver.walk(
            "menuButton1>MenuGameAdvance menuButton1>MenuGameDiary menuButton1>MenuGameMain"));
        ASSERT_TRUE(driver.takeOff());
        EXPECT_EQ(afterLook(), Waits) << "yesterday's logs no longer count";
    }
}

} // namespace
