// What code writes on the screens it writes in the player's language.
#include <filesystem>

#include "app/career/Aircraft.h"
#include "app/mission/DailyMission.h"
#include "engine/core/Registry.h"
#include "engine/menu/widgets/TextArea.h"
#include "tests/app/screens/CareerDriver.h"

namespace {

constexpr const char* Beginning = "menuButton3>MenuNewYear menuButton1>MenuNewCareer";

/// The program for a player of that locale.
struct Speaking {
    explicit Speaking(const char* locale) : driver(home, 1, false, locale) {
        EXPECT_TRUE(driver.screens->untilIdle("MenuMain"));
    }

    PlayerHome home;
    CareerDriver driver;
};

TEST(LanguageOfTheScreens, IsThatOfTheSwitches) {
    for (const auto& [locale, on, off, window, map, plane] :
         {std::array{"en_GB", "Sound: On", "Sound: Off", "Full screen: Off", "Western Front: On",
                     "SPAD VII Early: On"},
          {"de_DE", "Ton: Ein", "Ton: Aus", "Vollbild: Aus", "Westfront: Ein",
           "SPAD VII fr\xFCh: Ein"},
          {"fr_FR", "Son\xA0: oui", "Son\xA0: non",
           "Plein \xE9"
           "cran\xA0: non",
           "Front Ouest\xA0: oui", "SPAD VII 150 ch\xA0: oui"}}) {
        Speaking program(locale);
        CareerDriver& driver = program.driver;
        ASSERT_TRUE(driver.walk("menuButton3>MenuConfiguration"));
        EXPECT_EQ(driver.text("sound"), on);
        EXPECT_EQ(driver.text("fullScreen"), window);
        ASSERT_TRUE(driver.walk("sound"));
        EXPECT_EQ(driver.text("sound"), off);
        ASSERT_TRUE(driver.walk("menuButton1>MenuConfigurationMaps"));
        EXPECT_EQ(driver.text("menuButton1"), map);
        ASSERT_TRUE(driver.walk("menuBack>MenuConfiguration menuButton2>MenuConfigurationPlanes1"));
        EXPECT_EQ(driver.text("item4"), plane);
    }
}

TEST(LanguageOfTheScreens, IsThatOfWhatStoppedTheMission) {
    Speaking program("de_DE");
    CareerDriver& driver = program.driver;
    ASSERT_TRUE(driver.begin(Beginning));
    const std::string missions = program.home.simulatorFolder() + "/data/Missions";
    std::filesystem::remove_all(missions);
    program.home.folder.write(program.home.simulator + "/data/Missions", "in the way");
    ASSERT_TRUE(driver.go("menuButton1", "MenuNotificationMission"));
    EXPECT_EQ(driver.text("reason").find("Diese Datei konnte nicht geschrieben werden: "), 0U);
    EXPECT_NE(driver.text("reason").find(MissionFileName), std::string::npos);
    EXPECT_EQ(driver.screens->log.linesWith("The mission can't be written to "), 1);
}

// A player of Linux keeps the simulator in a folder without a drive.
TEST(LanguageOfTheScreens, GivesAnExampleOfThePlayersSystem) {
    const PlayerHome home;
    std::filesystem::remove(home.folder.file(home.simulator + "/data/startup.cfg"));
    CareerDriver driver(home);
    ASSERT_TRUE(driver.screens->untilIdle("MenuNotificationInstallDir"));
    const std::string example = driver.text("example");
    const std::string key = "rof.directory=";
    ASSERT_EQ(example.find(key), 0U);
    EXPECT_EQ(example[key.size()] == '/', driver.text("path")[0] == '/');
}

TEST(LanguageOfTheScreens, TellsWhatToDoWhenThereIsNothingToFly) {
    Speaking program("en_GB");
    CareerDriver& driver = program.driver;
    const auto isShown = [&](const char* line) {
        return driver.screens->menu().getTextArea(line)->isVisible();
    };
    ASSERT_TRUE(driver.begin(Beginning));
    for (const char* position : {"1", "0", "1"}) {
        for (const zel::String& plane : planeIdentifiers())
            zel::Registry::set(plane, position);
        ASSERT_TRUE(driver.toOrders());
        const bool isFlyable = position == std::string("1");
        for (const char* line : {"line1", "line2"})
            EXPECT_EQ(isShown(line), isFlyable);
        for (const char* line : {"skip1", "skip2"})
            EXPECT_EQ(isShown(line), !isFlyable);
        ASSERT_TRUE(driver.walk("menuBack>MenuGameMain"));
    }
}

} // namespace
