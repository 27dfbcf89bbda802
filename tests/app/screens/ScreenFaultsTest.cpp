// What goes wrong around the program ends in a page or a line that says what to do, and loses
// nothing.
#include <filesystem>

#include <gtest/gtest.h>

#include "app/career/Database.h"
#include "app/mission/DailyMission.h"
#include "engine/core/Platform.h"
#include "engine/menu/Widget.h"
#include "tests/app/screens/CareerDriver.h"

namespace {

constexpr const char* Beginning = "menuButton3>MenuNewYear menuButton1>MenuNewCareer";

std::string firstPiece(const PlayerHome& home) {
    for (const auto& entry : std::filesystem::directory_iterator(home.simulatorFolder() + "/data"))
        if (entry.path().filename().string().find("[0]") != std::string::npos)
            return home.simulator + "/data/" + entry.path().filename().string();
    return {};
}

} // namespace

TEST(ScreenFaults, TheSimulatorIsNotThereOrKeepsNoLog) {
    PlayerHome home;
    const std::string settings = home.simulator + "/data/startup.cfg";
    const std::string good = home.folder.read(settings);
    home.folder.write(settings, "mission_text_log = 0\n");
    CareerDriver driver(home);
    ASSERT_TRUE(driver.screens->untilIdle("MenuNotificationMissionTextLog"));
    std::filesystem::remove(home.folder.file(settings));
    ASSERT_TRUE(driver.go("menuButton1", "MenuNotificationInstallDir"));
    EXPECT_NE(driver.text("path").find("wtysettings.ini"), std::string::npos);
    home.folder.write(settings, good);
    ASSERT_TRUE(driver.go("menuButton1", "MenuMain"));
}

TEST(ScreenFaults, TheMissionCannotBeWritten) {
    PlayerHome home;
    CareerDriver driver(home);
    ASSERT_TRUE(driver.begin(Beginning));
    std::filesystem::remove_all(home.simulatorFolder() + "/data/Missions");
    home.folder.write(home.simulator + "/data/Missions", "in the way");
    driver.screens->menu().hitWidget("menuButton1");
    ASSERT_TRUE(driver.screens->untilIdle("MenuNotificationMission"));
    EXPECT_NE(driver.text("reason").find(MissionFileName), std::string::npos);
    std::filesystem::remove(home.simulatorFolder() + "/data/Missions");
    std::filesystem::create_directory(home.simulatorFolder() + "/data/Missions");
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameMain menuButton1>MenuGameStartMission"));
}

TEST(ScreenFaults, TheCareerCannotBeSaved) {
    PlayerHome home;
    CareerDriver driver(home);
    ASSERT_TRUE(driver.begin(Beginning));
    home.folder.write("user/Saves", "in the way");
    const zel::String pilot = Database::instance()->player().name;
    for (const char* button : {"menuButton4", "menuBack"}) {
        ASSERT_TRUE(driver.go(button, "MenuNotificationSave"));
        EXPECT_NE(driver.text("reason").find("savegame_v03.wty"), std::string::npos);
        ASSERT_TRUE(driver.go("menuButton1", "MenuGameMain"));
        EXPECT_EQ(pilot, Database::instance()->player().name);
    }
    std::filesystem::remove(home.folder.file("user/Saves"));
    ASSERT_TRUE(driver.go("menuBack", "MenuMain"));
    EXPECT_NE(home.save(), "");
}

TEST(ScreenFaults, ThePlayerMayQuitWithoutSaving) {
    PlayerHome home;
    CareerDriver driver(home);
    ASSERT_TRUE(driver.begin(Beginning));
    home.folder.write("user/Saves", "in the way");
    ASSERT_TRUE(driver.go("menuButton4", "MenuNotificationSave"));
    driver.screens->key(zel::KeyEscape);
    ASSERT_TRUE(driver.screens->untilIdle("MenuNotificationSave")) << "not by a slip";
    ASSERT_TRUE(driver.go("menuButton2", "quitApp"));
}

TEST(ScreenFaults, ThereIsNoCareerOrADamagedOne) {
    PlayerHome home;
    CareerDriver driver(home);
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    ASSERT_TRUE(driver.walk("menuButton2>BlackScreen menuBack>MenuMain"));
    home.folder.write("user/Saves/savegame_v03.wty", "no career at all");
    ASSERT_TRUE(driver.walk("menuButton2>BlackScreen menuBack>MenuMain"));
    EXPECT_EQ(home.save(), "no career at all");
    // The page tells of the career before it, which a new one leaves alone.
    home.folder.write("user/Saves/savegame_v03.wty.bak", "the last whole one");
    ASSERT_TRUE(driver.begin(Beginning));
    ASSERT_TRUE(driver.go("menuBack", "MenuMain"));
    EXPECT_EQ(home.save().substr(0, 4), "WTSV");
    EXPECT_EQ(home.folder.read("user/Saves/savegame_v03.wty.bak"), "the last whole one");
    EXPECT_EQ(home.folder.read("user/Saves/savegame_v03.wty.damaged"), "no career at all");
}

TEST(ScreenFaults, TheLogIsStillGrowingOrSomebodyElses) {
    PlayerHome home("Rise of Flight [old]");
    CareerDriver driver(home);
    ASSERT_TRUE(driver.begin(Beginning));
    ASSERT_TRUE(driver.takeOff());
    home.folder.write(home.simulator + "/data/missionReport(2009-01-01_10-00-00)[0].txt",
                      "T:0 AType:0 GDate:1917.4.12 MFile:other.msnbin\n");
    driver.look();
    EXPECT_EQ(driver.state(), "MenuGameFinishMission") << "a flight of somebody else's";

    ASSERT_TRUE(driver.fly());
    std::filesystem::remove(
        home.folder.file(home.simulator + "/data/missionReport(2009-01-01_10-00-00)[0].txt"));
    // The simulator writes its log piece by piece: at first there is the beginning alone.
    const std::string first = firstPiece(home);
    const std::string whole = home.folder.read(first);
    std::vector<std::pair<std::string, std::string>> later;
    for (const auto& entry : std::filesystem::directory_iterator(home.simulatorFolder() + "/data"))
        if (const std::string name = entry.path().filename().string();
            name.find("].txt") != std::string::npos) {
            later.emplace_back(home.simulator + "/data/" + name,
                               home.folder.read(home.simulator + "/data/" + name));
            std::filesystem::remove(entry.path());
        }
    home.folder.write(first, whole.substr(0, 200));
    driver.look();
    EXPECT_EQ(driver.state(), "MenuGameFinishMission");
    home.folder.write(first, whole.substr(0, 400));
    driver.look();
    EXPECT_EQ(driver.state(), "MenuGameFinishMission");
    EXPECT_EQ(driver.text("growing"), "Your flight isn't over yet: the log is still growing.");
    for (const auto& [name, content] : later)
        home.folder.write(name, content);
    ASSERT_TRUE(driver.comeBack());
}
