// From an empty user folder to the first report, and what can go wrong on the way.
#include <algorithm>
#include <filesystem>

#include "app/mission/DailyMission.h"
#include "app/mission/Settings.h"
#include "app/screens/FolderWalk.h"
#include "app/screens/OwnStandIn.h"
#include "app/screens/PathText.h"
#include "app/screens/SimulatorPlaces.h"
#include "engine/core/LockFile.h"
#include "engine/core/System.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "tests/app/screens/CareerDriver.h"
#include "tests/support/Texts.h"

namespace {

using How = CareerDriver::How;

/// A path, or text with paths, in the form of systems other than Windows.
std::string slashed(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

/// A player who has no settings yet.
struct NewPlayer {
    explicit NewPlayer(const SearchRoots& roots = {}, bool waits = true) {
        std::filesystem::remove(home.folder.file("user/wtysettings.ini"));
        standin::FlightOptions flight; // without a delay
        flight.seed = 2;
        OwnStandIn::setOptions(flight);
        start();
        SimulatorPlaces::setRoots(roots, waits);
    }
    /// The program again, with the settings that it has left.
    void start() {
        driver = nullptr;
        driver = std::make_unique<CareerDriver>(home);
        reloadSettings();
    }
    std::string settings() const { return slashed(home.folder.read("user/wtysettings.ini")); }
    std::string chosen() const { return "rof.directory=" + slashed(home.simulatorFolder()) + "\n"; }

    /// The listed folder, in one line. Windows shows the whole path of his own folder; here that
    /// becomes "~", as elsewhere.
    std::string listed() const {
        std::string path = driver->text("path");
        path.erase(std::remove(path.begin(), path.end(), '\n'), path.end());
#ifdef _WIN32
        if (path.compare(0, home.folder.path().size(), home.folder.path()) == 0)
            path.replace(0, home.folder.path().size(), "~");
#endif
        return slashed(path);
    }

    const InFront inFront{false};
    PlayerHome home;
    std::unique_ptr<CareerDriver> driver;
};

SearchRoots rootsAt(const zel::String& registry) {
    SearchRoots roots;
    roots.registry = registry;
    return roots;
}

bool untilReported(CareerDriver& driver) {
    for (int32_t i = 0; i < 500 && driver.state() != "MenuGameCombatReport"; ++i) {
        zel::system::sleepMilliseconds(20); // the stand-in's thread has a clock of its own
        driver.look();
    }
    return driver.screens->untilIdle("MenuGameCombatReport");
}

class FirstStart : public testing::TestWithParam<How> {};

TEST_P(FirstStart, LeadsToAReportWithoutASimulator) {
    NewPlayer player;
    player.home.folder.write("user/Stand-in/data/startup.cfg", ""); // of a disk that was full
    ASSERT_TRUE(player.driver->screens->untilIdle("MenuSimulator"));
    ASSERT_TRUE(player.driver->walk(
        "standin>MenuMain careers>MenuCareers another>MenuNewService menuButton2>MenuNewYear "
        "menuButton1>MenuEnlist menuButton1>MenuNewCareer menuButton4>MenuGameMain "
        "menuButton1>MenuGameStartMission menuButton4>MenuGameFinishMission",
        GetParam()));
    EXPECT_EQ(player.driver->text("line2").find("The stand-in flies your mission."), 0U);
    ASSERT_TRUE(untilReported(*player.driver)) << player.driver->state();
    ASSERT_TRUE(player.driver->closeReport());

    player.start(); // the next day
    ASSERT_TRUE(player.driver->screens->untilIdle("MenuMain")) << player.settings();
    SimulatorPlaces::setRoots(rootsAt(player.home.simulatorFolder()));
    ASSERT_TRUE(player.driver->walk("simulator>MenuSimulator menuButton1>MenuMain", GetParam()));
    EXPECT_FALSE(OwnStandIn::isChosen());
    EXPECT_EQ(player.settings(), player.chosen());
}

TEST_P(FirstStart, SwitchesTheTextLogOn) {
    NewPlayer player;
    const std::string file = player.home.simulator + "/data/startup.cfg";
    player.home.folder.write(file, "[KEY = system]\r\n\tmission_text_log = 0\r\n[END]\r\n");
    SimulatorPlaces::setRoots(rootsAt(player.home.simulatorFolder()));
    ASSERT_TRUE(player.driver->screens->untilIdle("MenuSimulator"));
    EXPECT_FALSE(player.driver->widget("menuButton1")->isActive());
    ASSERT_TRUE(player.driver->walk("switchOn menuButton1>MenuMain", GetParam()));
    EXPECT_EQ(player.home.folder.read(file),
              "[KEY = system]\r\n\tmission_text_log = 1\r\n[END]\r\n");
}

INSTANTIATE_TEST_SUITE_P(Both, FirstStart, testing::Values(How::Pointer, How::Keys));

// The stand-in's folder is locked by another program until the mission has been damaged.
TEST(FirstStartPages, TheStandInSaysWhyItDoesNotFly) {
    NewPlayer player;
    CareerDriver& driver = *player.driver;
    const TemporaryFolder& folder = player.home.folder;
    folder.write("user/Stand-in/data/Missions/x", "");
    auto other = std::make_unique<zel::LockFile>();
    ASSERT_TRUE(other->take(folder.file("user/Stand-in/flights.lock")));
    ASSERT_TRUE(driver.screens->untilIdle("MenuSimulator"));
    ASSERT_TRUE(driver.walk(
        "standin>MenuMain careers>MenuCareers another>MenuNewService menuButton2>MenuNewYear "
        "menuButton1>MenuEnlist menuButton1>MenuNewCareer menuButton4>MenuGameMain "
        "menuButton1>MenuGameStartMission menuButton4>MenuGameFinishMission"));
    for (int32_t look = 0; look < 7; ++look)
        driver.look();
    EXPECT_EQ(driver.text("log"), "No new log for 1 min. Press \"New orders\" in the office to "
                                  "have the stand-in fly again.");
    folder.write(std::string("user/Stand-in/data/Missions/") + MissionFileName, "# nothing\r\n");
    other.reset();
    for (int32_t i = 0; i < 500 && driver.text("log").find("can't fly") == std::string::npos; ++i) {
        zel::system::sleepMilliseconds(20);
        driver.look();
    }
    EXPECT_EQ(driver.text("log"),
              "The stand-in can't fly this mission: WingtallyMission.Mission:1: "
              "a mission begins with '# Mission File Version = 1.0;'");
    EXPECT_EQ(driver.text("line2"),
              "The stand-in isn't flying. Press \"New orders\" in the office.");
    ASSERT_TRUE(driver.walk("menuBack>MenuGameMain menuButton1>MenuGameStartMission "
                            "menuButton4>MenuGameFinishMission"));
    EXPECT_EQ(driver.text("line2").find("The stand-in flies your mission."), 0U);
    EXPECT_TRUE(untilReported(driver)) << driver.text("log");
}

TEST(FirstStartPages, PlacesAppearWhileTheSearchRuns) {
    NewPlayer player({}, false);
    SimulatorPlaces::setRoots(rootsAt(player.home.simulatorFolder()), false);
    CareerDriver& driver = *player.driver;
    ASSERT_TRUE(driver.screens->untilIdle("MenuSimulator"));
    for (int32_t i = 0; i < 500 && !driver.widget("menuButton1")->isActive(); ++i) {
        zel::system::sleepMilliseconds(10);
        driver.screens->step();
    }
    EXPECT_NE(driver.text("place.row1").find("Registry: "), std::string::npos);
    SimulatorPlaces::setRoots({});
    ASSERT_TRUE(driver.walk("lookAgain"));
    EXPECT_EQ(driver.widget("place.row1"), nullptr);
    EXPECT_FALSE(driver.widget("menuButton1")->isActive());
}

TEST(FirstStartPages, ASecondPressDoesNotEndTheProgram) {
    NewPlayer player;
    CareerDriver& driver = *player.driver;
    ASSERT_TRUE(driver.screens->untilIdle("MenuSimulator"));
    ASSERT_TRUE(driver.walk("lookElsewhere>MenuSimulatorFolder menuBack>MenuSimulator"));
    driver.screens->key(zel::KeyEscape);
    ASSERT_TRUE(driver.screens->untilIdle("MenuSimulator"));
    driver.screens->step(600);
    driver.screens->key(zel::KeyEscape);
    EXPECT_TRUE(driver.screens->untilIdle("quitApp"));
}

TEST(FirstStartPages, FoldersAnswerTheKeys) {
    NewPlayer player;
    for (int32_t i = 0; i < 400; ++i)
        std::filesystem::create_directory(player.home.folder.file("many/" + std::to_string(i)));
    CareerDriver& driver = *player.driver;
    ASSERT_TRUE(driver.screens->untilIdle("MenuSimulator"));
    ASSERT_TRUE(driver.walk("lookElsewhere>MenuSimulatorFolder"));
    const auto type = [&](int32_t symbol, char character = 0) {
        driver.screens->key(symbol, character);
        driver.screens->step();
    };
    struct Stroke {
        int32_t key;
        char letter;
        const char* path;
        const char* line;
    };
    // In the player's folder are "many", "simulator" and "user".
    const Stroke strokes[] = {
        {'m', 'm', "~", "Folders 1 to 3 of 3"},
        {zel::KeyReturn, 0, "~/many", "Folders 1 to 8 of 400"},
        {'9', '9', "~/many", "Folders 383 to 390 of 400"}, // "9", by the letters
        {zel::KeyBackspace, 0, "~", "Folders 1 to 3 of 3"},
        {'S', 'S', "~", "Folders 1 to 3 of 3"},
        {zel::KeyReturn, 0, "~/simulator", "Folders 1 to 1 of 1"},
        {zel::KeyReturn, 0, "~/simulator/data", "Folders 1 to 1 of 1"},
    };
    for (const Stroke& stroke : strokes) {
        type(stroke.key, stroke.letter);
        EXPECT_EQ(player.listed(), stroke.path);
        EXPECT_EQ(driver.text("more"), stroke.line) << stroke.path;
    }
    ASSERT_TRUE(driver.walk("menuButton1>MenuSimulator menuButton1>MenuMain"))
        << "the folder above data";
    EXPECT_NE(player.settings().find(player.chosen()), std::string::npos);
}

TEST(FirstStartPages, AFolderThatIsGoneIsNamed) {
    NewPlayer player;
    const std::string gone = player.home.folder.file("gone");
    std::filesystem::create_directory(gone);
    CareerDriver& driver = *player.driver;
    ASSERT_TRUE(driver.screens->untilIdle("MenuSimulator"));
    ASSERT_TRUE(driver.walk("lookElsewhere>MenuSimulatorFolder"));
    std::filesystem::remove(gone);
    ASSERT_TRUE(driver.walk("folder.row1"));
    driver.screens->step();
    EXPECT_EQ(driver.text("more"), "This folder can't be read.");
    ASSERT_TRUE(driver.walk("up"));
}

#ifndef _WIN32
TEST(FolderWalk, LeavesAFolderNamedLikeADrive) {
    const TemporaryFolder folder;
    folder.write("d:/Games/x", "");
    FolderWalk walk;
    walk.open(folder.path() + "/d:/");
    walk.enter(0);
    EXPECT_EQ(walk.goUp(), 0);
    EXPECT_EQ(walk.getFolder(), folder.path() + "/d:");
    EXPECT_EQ(walk.goUp(), 0);
    EXPECT_EQ(walk.getFolder(), folder.path());
}
#endif

TEST(PathText, LosesItsMiddle) {
    struct Case {
        const char* path;
        size_t letters;
        const char* shortened;
    };
    const Case cases[] = {
        {"D:\\Games\\Rise of Flight", 40, "D:\\Games\\Rise of Flight"},
        {"D:\\Library\\steamapps\\common\\Rise of Flight", 30, "D:\\...\\common\\Rise of Flight"},
        {"/opt/games/wine/drive_c/Rise of Flight", 24, "/.../Rise of Flight"},
        {"D:\\a-very-long-name-of-a-folder", 12, "...-a-folder"},
        {"/", 10, "/"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(shortPath(c.path, c.letters), c.shortened);
    EXPECT_EQ(pathInLines("/one/two/three/four", 10, 2), "/one/two/\nthree/four");
    EXPECT_EQ(pathInLines("/one/two/three/four/five/six", 10, 2), "/.../four/\nfive/six");
}

} // namespace
