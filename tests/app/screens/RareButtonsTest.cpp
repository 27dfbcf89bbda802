// Buttons that a player meets only in special cases: a letter, a long report, a notice; and those
// that end the program. Each is pressed by pointer and by keys, in the real window.
#include <gtest/gtest.h>

#include "app/career/Database.h"
#include "app/career/Nation.h"
#include "app/report/CombatReport.h"
#include "app/screens/MenuNotification.h"
#include "engine/window/Window.h"
#include "tests/app/screens/BookFlights.h"
#include "tests/app/screens/CareerDriver.h"
#include "tests/support/HandMade.h"

namespace {

using How = CareerDriver::How;

void show(CareerDriver& driver, const char* page) {
    MenuNotification::show(driver.screens->menu(), page, "a reason");
    EXPECT_TRUE(driver.screens->untilIdle(page));
}

void invite(CareerDriver& driver) { driver.invite(); }

/// Makes a report of four sheets.
void fillReport(CareerDriver& driver) {
    EXPECT_TRUE(driver.takeOff());
    for (int32_t i = 0; i < 16; ++i) {
        PilotReport& pilot = CombatReport::instance()->pilots.emplace_back();
        pilot.country = Germany;
        pilot.name = "Fritz";
    }
}

/// Makes a book of two pages, and keeps the browser from opening.
void fillBook(CareerDriver& /*driver*/) {
    zel::Window::setBrowser([](const zel::String&) { return true; });
    addFlightsToBook(*Database::instance(), 28);
}

/// Before the page on which the war moves on.
void fall(CareerDriver& driver) {
    standin::FlightOptions flight;
    flight.killPlayer = true;
    EXPECT_TRUE(driver.takeOff() && driver.fly(flight));
    driver.look();
    EXPECT_TRUE(driver.screens->untilIdle("MenuGameCombatReport"));
}

/// Makes an ace in a war that has none yet.
void makeAnAce(CareerDriver& /*driver*/) {
    Database& career = *Database::instance();
    career.pilot(career.playerPilot == 0 ? 1 : 0).shotdowns = AceShotdowns;
}

/// What has come, and the steps from there.
struct Passage {
    void (*prepare)(CareerDriver& driver);
    const char* steps;
};
constexpr Passage Passages[] = {
    {invite, "menuButton1>MenuGameInvite menuBack>MenuGameMain menuButton1>MenuGameInvite "
             "menuButton4>MenuGameMain"},
    {invite, "menuButton1>MenuGameInvite menuButton3>MenuGameMain"},
    {fillReport, "menuButton4>MenuGameCombatReport nextSheet nextSheet nextSheet nextSheet "
                 "where>MenuGameWhere menuBack>MenuGameCombatReport where>MenuGameWhere "
                 "menuButton1>MenuGameAdvance menuButton1>MenuGameDiary menuButton1>MenuGameMain"},
    {fillBook, "logbook>MenuGameLogbook webPage earlier later left3>MenuGameCombatReport "
               "where>MenuGameWhere menuButton1>MenuGameLogbook menuBack>MenuGameMain "
               "record>MenuGameRecord webPage menuBack>MenuGameMain"},
    {fall, "menuButton1>MenuGameAdvance menuButton1>MenuGameFallen menuButton1>MenuGameDiary "
           "menuButton1>MenuGameMain"},
    {fall, "menuButton1>MenuGameAdvance menuButton1>MenuGameFallen close>MenuCareers "
           "menuButton1>MenuGameFallen menuButton1>MenuGameMain"},
    {[](CareerDriver&) { setDate(*Database::instance(), 1918, 11, 11); },
     "diary>MenuGameDiary menuButton1>MenuGameWarOver webPage logbook>MenuGameLogbook "
     "menuBack>MenuGameWarOver menuBack>MenuGameMain"},
    {makeAnAce, "menuButton3>MenuGameTopAces pilot.row1>MenuGamePilot menuBack>MenuGameTopAces "
                "menuButton1>MenuGameMain"},
    {[](CareerDriver& driver) { show(driver, "MenuNotificationMission"); },
     "menuButton1>MenuGameMain"},
    {[](CareerDriver& driver) { show(driver, "MenuNotificationSave"); },
     "menuButton1>MenuGameMain"},
    {[](CareerDriver& driver) { show(driver, "BlackScreen"); },
     "menuBack>MenuMain menuButton3>MenuConfiguration fullScreen"},
};

struct Ending {
    const char* page;
    const char* button;
};
constexpr Ending Endings[] = {
    {"MenuMain", "menuBack"},
    {"MenuGameMain", "menuButton4"},
    {"MenuNotificationSave", "menuButton2"},
};

class RareButtons : public testing::TestWithParam<How> {
    const InFront inFront{false};
};

TEST_P(RareButtons, Answer) {
    const PlayerHome home;
    CareerDriver driver(home, 1, true);
    ASSERT_TRUE(driver.begin("menuButton2>MenuNewYear menuButton1>MenuEnlist"));
    for (const Passage& passage : Passages) {
        passage.prepare(driver);
        EXPECT_TRUE(driver.walk(passage.steps, GetParam()));
    }
    // The last step, after which a design pixel is no longer a window pixel.
    EXPECT_TRUE(zel::Window::current()->isFullscreen());
    EXPECT_TRUE(driver.walk("fullScreen"));
}

TEST_P(RareButtons, EndTheProgram) {
    for (const auto& [page, button] : Endings) {
        SCOPED_TRACE(page);
        const PlayerHome home;
        CareerDriver driver(home, 1, true);
        const bool isOffice = page == std::string("MenuGameMain");
        if (isOffice)
            ASSERT_TRUE(driver.begin("menuButton2>MenuNewYear menuButton1>MenuEnlist"));
        else
            ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
        if (driver.state() != page)
            show(driver, page);
        EXPECT_TRUE(driver.go(button, "quitApp", GetParam()));
        EXPECT_EQ(home.save().empty(), !isOffice);
    }
}

INSTANTIATE_TEST_SUITE_P(Both, RareButtons, testing::Values(How::Pointer, How::Keys));

} // namespace
