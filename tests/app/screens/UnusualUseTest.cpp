// Players in a hurry, names of every sort, and menus that lack most of what the code handles.
#include "app/career/Database.h"
#include "app/mission/Configuration.h"
#include "app/report/CombatReport.h"
#include "app/screens/Application.h"
#include "engine/core/Language.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/StatesMachine.h"
#include "tests/app/screens/CareerDriver.h"

namespace {

constexpr const char* German1915 = "menuButton3>MenuNewYear menuButton1>MenuEnlist";

/// Both presses come before the first is followed.
void pressTwice(CareerDriver& driver, const char* button) {
    driver.screens->menu().hitWidget(button);
    driver.screens->menu().hitWidget(button);
}

using UnusualUse = CareerScreens;

TEST_F(UnusualUse, TwoQuickPressesAreOne) {
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    ASSERT_TRUE(driver.walk(std::string("careers>MenuCareers another>MenuNewService ") +
                            German1915 + " menuButton1>MenuNewCareer"));
    pressTwice(driver, "menuButton4");
    ASSERT_TRUE(driver.screens->untilIdle("MenuGameMain"));
    EXPECT_EQ(driver.screens->log.linesWith("SIMULATED MISSIONS"), 1);

    const int32_t other = driver.invite();
    ASSERT_TRUE(driver.go("menuButton1", "MenuGameInvite"));
    pressTwice(driver, "menuButton4");
    ASSERT_TRUE(driver.screens->untilIdle("MenuGameMain"));
    EXPECT_EQ(Database::instance()->previousInvitation, other);
}

TEST_F(UnusualUse, ALanguageChangesAllTextsAtOnceAndIsRemembered) {
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    ASSERT_TRUE(driver.walk("menuButton3>MenuConfiguration"));
    EXPECT_EQ(driver.widget("language2")->getKind(), "languageon");
    ASSERT_TRUE(driver.walk("fullScreen language6"));
    EXPECT_EQ(driver.text("title"), "Ustawienia");
    EXPECT_EQ(driver.text("fullScreen"), "Pe\x04ny ekran: w\x04.") << "what code sets, too";
    EXPECT_EQ(driver.widget("language2")->getKind(), "languageoff");
    ASSERT_TRUE(driver.walk("menuBack>MenuMain"));
    EXPECT_EQ(driver.text("menuButton4"), "Instrukcja") << "on a screen that was there before";
    ASSERT_TRUE(driver.begin(German1915));
    EXPECT_EQ(driver.text("menuButton1"), "Nast\x03pne zadanie");
    zel::Language::reset();
    zel::Language::init();
    EXPECT_EQ(zel::Language::getCode(), "pl") << "in place of the system's";
}

TEST_F(UnusualUse, WhoGoesAwayGetsNoReport) {
    ASSERT_TRUE(driver.begin(German1915));
    ASSERT_TRUE(driver.takeOff());
    ASSERT_TRUE(driver.fly());
    driver.screens->menu().hitWidget("menuBack");
    driver.look();
    ASSERT_TRUE(driver.screens->untilIdle("MenuGameMain"));
    EXPECT_EQ(driver.screens->log.linesWith("MISSION FINISHED"), 0)
        << "it would be carried into the career and never shown";
}

TEST_F(UnusualUse, NamesStandAsTheyAre) {
    ASSERT_TRUE(driver.begin(German1915));
    constexpr const char* Name = "J\xFCrgen \"$1\" %s O\\neill";
    Database& career = *Database::instance();
    zel::copyText(career.player().name, Name);
    career.player().shotdowns = 100; // the first of the roll
    ASSERT_TRUE(driver.go("menuButton2", "MenuGameViewSquadron"));
    EXPECT_EQ(driver.text("pilot.row1").find(" 1. " + std::string(Name) + " (you!) "), 0U);
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameMain"));
    ASSERT_TRUE(driver.takeOff());
    PilotReport& report = CombatReport::instance()->pilots.emplace_back();
    report.name = Name;
    ASSERT_TRUE(driver.go("menuButton4", "MenuGameCombatReport"));
    EXPECT_EQ(driver.text("left1"), std::string(Name) + " - Kills: 0");
}

TEST(UnusualMenus, EveryElementMayBeMissing) {
    const PlayerHome home;
    Configuration::reset();
    Configuration::set("rof.directory", home.simulatorFolder());
    setWindowWanted(false);
    {
        ScreenDriver screens({{"MenuMain", ""},
                              {"MenuEnlist", ""},
                              {"MenuNewCareer", ""},
                              {"MenuGameMain", ""},
                              {"MenuGameInvite", ""},
                              {"MenuGameViewSquadron", ""},
                              {"MenuGameTopAces", ""},
                              {"MenuGamePilot", ""},
                              {"MenuGameStartMission", ""},
                              {"MenuGameFinishMission", ""},
                              {"MenuGameCombatReport", ""},
                              {"MenuConfiguration", ""},
                              {"MenuConfigurationMaps", ""},
                              {"MenuConfigurationPlanes1", ""},
                              {"MenuConfigurationPlanes2", ""},
                              {"MenuSimulator", ""},
                              {"MenuSimulatorFolder", ""}});
        ASSERT_TRUE(screens.untilIdle("MenuMain"));
        // The enlistment makes the career that the other pages then show. Without a mission
        // template there is no mission, and no page that says so.
        for (const zel::HandledMenu* menu : zel::HandledMenu::getMenus()) {
            if (menu->getName() == "MenuMain")
                continue;
            screens.menu().setTransition(menu->getName());
            EXPECT_TRUE(screens.untilIdle(menu->getName().c_str()));
            screens.step(9000);
        }
        EXPECT_TRUE(Database::instance()->hasCareer());
        screens.menu().setTransition("MenuMain");
        EXPECT_TRUE(screens.untilIdle("MenuMain"));
    }
    Configuration::reset();
}

} // namespace
