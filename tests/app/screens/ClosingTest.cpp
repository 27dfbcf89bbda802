// What closing the window does on each page of a career: nothing is lost without a question, and
// nobody is asked needlessly or after a signal.
#include <csignal>
#include <filesystem>
#include <sstream>

#include <gtest/gtest.h>

#include "app/career/Database.h"
#include "engine/core/Clock.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "engine/window/ZelLoop.h"
#include "tests/app/screens/BookFlights.h"
#include "tests/app/screens/CareerDriver.h"
#include "tests/engine/window/Events.h"
#include "tests/support/HandMade.h"

namespace {

constexpr const char* Saves = "user/Saves";
constexpr const char* Question = "MenuNotificationUnsaved";

/// Whether the program ends, once nothing moves on the screen.
bool closeWindow(CareerDriver& driver) {
    zel::Platform::getInstance().handleEvent(quitEvent());
    for (int32_t frame = 0; frame < 20; ++frame) {
        if (zel::ZelLoop::isFinished())
            return true;
        driver.screens->step();
    }
    return false;
}

/// Goes from the office to the report of a flight.
testing::AssertionResult toReport(CareerDriver& driver, const standin::FlightOptions& flight = {}) {
    if (const auto result = driver.takeOff(); !result)
        return result;
    if (const auto result = driver.fly(flight); !result)
        return result;
    driver.look();
    return driver.screens->untilIdle("MenuGameCombatReport")
               ? testing::AssertionSuccess()
               : testing::AssertionFailure() << driver.state();
}

/// What the page shows, and where it leads.
std::string pageOf(const CareerDriver& driver) {
    std::string page = driver.state() + "\n";
    for (const auto& [name, plate] : driver.screens->menu().getWidgets())
        if (plate->isVisible())
            page += (name + ": " + plate->getText() + " > " + plate->getTransition() + "\n").view();
    for (const auto& [name, area] : driver.screens->menu().getTextAreas())
        if (area->isVisible())
            page += (name + ": " + area->getText() + "\n").view();
    return page;
}

int32_t dateNow() { return Database::instance()->calendar().dateNumber(); }

// The first save has failed.
class ClosingAtOnce : public testing::Test {
protected:
    void SetUp() override {
        home.folder.write(Saves, "in the way");
        ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
        ASSERT_TRUE(driver.walk("careers>MenuCareers another>MenuNewService "
                                "menuButton2>MenuNewYear menuButton1>MenuEnlist "
                                "menuButton1>MenuNewCareer menuButton4>MenuNotificationSave"));
        std::filesystem::remove(home.folder.file(Saves));
    }
    ~ClosingAtOnce() override { zel::Platform::getInstance().clearInput(); }

    bool close() { return closeWindow(driver); }
    /// Closes, is asked, and goes back to the same page.
    void expectAsked() {
        const std::string from = driver.state();
        const std::string page = pageOf(driver);
        EXPECT_FALSE(close()) << from;
        ASSERT_TRUE(driver.screens->untilIdle(Question)) << from;
        EXPECT_FALSE(close()) << "the question isn't an answer";
        ASSERT_TRUE(driver.screens->untilIdle(Question));
        ASSERT_TRUE(driver.go("menuBack", from));
        EXPECT_EQ(pageOf(driver), page);
    }
    void expectAskedAtEach(const std::string& steps) {
        std::istringstream words(steps);
        for (std::string step; words >> step;) {
            ASSERT_TRUE(driver.walk(step));
            ASSERT_NO_FATAL_FAILURE(expectAsked());
        }
    }
    /// Closes, is asked, and saves.
    void saveAndQuit(const char* to) {
        EXPECT_FALSE(close());
        ASSERT_TRUE(driver.screens->untilIdle(Question));
        ASSERT_TRUE(driver.go("menuButton1", to));
    }
    bool isShown(const char* text) { return driver.screens->menu().getTextArea(text)->isVisible(); }

    const InFront inFront{false};
    const PlayerHome home;
    CareerDriver driver{home, 1, true};
};

// In the office.
class Closing : public ClosingAtOnce {
protected:
    void SetUp() override {
        ClosingAtOnce::SetUp();
        ASSERT_TRUE(driver.walk("menuButton1>MenuGameMain"));
    }
};

TEST_F(ClosingAtOnce, AsksAboutACareerThatWasNeverSaved) {
    expectAsked();
    EXPECT_NE(driver.text("reason").find("savegame_v03.wty"), std::string::npos);
}

TEST_F(Closing, AsksOnEveryPageOfAnUnsavedCareer) {
    expectAsked();
    expectAskedAtEach("menuButton2>MenuGameViewSquadron pilot.row1>MenuGamePilot "
                      "menuBack>MenuGameViewSquadron menuButton1>MenuGameMain "
                      "menuButton3>MenuGameTopAces pilot.own>MenuGameRecord "
                      "menuBack>MenuGameTopAces menuButton1>MenuGameMain "
                      "record>MenuGameRecord menuBack>MenuGameMain");
    driver.invite();
    expectAskedAtEach("menuButton1>MenuGameInvite menuButton3>MenuGameMain "
                      "menuButton1>MenuGameStartMission menuButton4>MenuGameFinishMission");
    EXPECT_EQ(home.save(), "");
}

TEST_F(Closing, LeavesTheWayThroughTheLettersAsItIs) {
    Database& career = *Database::instance();
    for (int32_t day = 1; day <= 15; ++day) { // the last one brings the Distinguished Service Order
        setDate(career, 1917, 6, day);
        addFlight(career, 1);
    }
    setDate(career, 1917, 6, 16);
    driver.screens->menu().setTransition("MenuGameAdvance");
    ASSERT_TRUE(driver.screens->untilIdle("MenuGameAdvance"));
    expectAskedAtEach("menuButton1>MenuGameCitation record>MenuGameRecord menuBack>MenuGameDiary "
                      "menuButton1>MenuGameMain logbook>MenuGameLogbook earlier "
                      "menuBack>MenuGameMain");
    setDate(career, 1918, 11, 11);
    expectAskedAtEach("diary>MenuGameDiary menuButton1>MenuGameWarOver logbook>MenuGameLogbook "
                      "menuBack>MenuGameWarOver menuBack>MenuGameMain");
}

TEST_F(Closing, HoldsTheDayOfTheReport) {
    ASSERT_TRUE(toReport(driver));
    const int32_t before = dateNow();
    expectAsked();
    expectAskedAtEach("where>MenuGameWhere");
    EXPECT_EQ(dateNow(), before);
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameAdvance menuButton1>MenuGameDiary"));
    const int32_t after = dateNow();
    EXPECT_GT(after, before) << "it was held only once";
    expectAskedAtEach("menuButton1>MenuGameMain logbook>MenuGameLogbook "
                      "left1>MenuGameCombatReport menuButton1>MenuGameLogbook "
                      "menuBack>MenuGameMain");
    ASSERT_TRUE(driver.takeOff());
    ASSERT_TRUE(driver.walk("menuButton4>MenuGameCombatReport"));
    EXPECT_FALSE(close());
    ASSERT_TRUE(driver.screens->untilIdle(Question));
    EXPECT_FALSE(isShown("text2")) << "nobody waits for the flight any more";
    ASSERT_TRUE(driver.walk("menuBack>MenuGameCombatReport menuButton1>MenuGameAdvance"));
    EXPECT_GT(dateNow(), after) << "a flight of the book holds no day";
}

TEST_F(Closing, EndsTheDayOfTheReportOnceIfItCannotBeSaved) {
    standin::FlightOptions flight;
    flight.killPlayer = true;
    ASSERT_TRUE(driver.walk("menuBack>MenuMain menuButton2>MenuGameMain"));
    ASSERT_TRUE(toReport(driver, flight));
    const int32_t before = dateNow();
    const std::string backup = "user/Saves/savegame_v03.wty.bak";
    std::filesystem::remove(home.folder.file(backup));
    home.folder.write(backup + "/x", "in the way");
    ASSERT_NO_FATAL_FAILURE(saveAndQuit("MenuNotificationSave"));
    const int32_t after = dateNow();
    EXPECT_GT(after, before);
    expectAsked();
    ASSERT_NO_FATAL_FAILURE(saveAndQuit("MenuNotificationSave"));
    ASSERT_TRUE(driver.go("menuButton1", "MenuGameAdvance"));
    EXPECT_EQ(dateNow(), after);
    driver.screens->menu().hitWidget("menuButton1");
    EXPECT_TRUE(driver.screens->untilIdle("MenuGameFallen")) << "the letter is still read";
}

/// Leaves the report and saves in the office, or closes the window on it and saves there. `dayEnd`:
/// when the day ends, since the draws of its fights depend on that.
void saveAfterReport(CareerDriver& driver, bool closes, uint32_t& dayEnd) {
    const int32_t before = dateNow();
    if (closes) {
        EXPECT_FALSE(closeWindow(driver));
        ASSERT_TRUE(driver.screens->untilIdle(Question));
    }
    ScreenDriver::waitUntil(dayEnd);
    driver.screens->menu().hitWidget("menuButton1");
    for (int32_t frame = 0; frame < 100 && dateNow() == before; ++frame)
        driver.screens->step();
    dayEnd = zel::ticks();
    ASSERT_TRUE(driver.screens->untilIdle(closes ? "quitApp" : "MenuGameAdvance"));
    if (!closes) {
        ASSERT_TRUE(driver.walk("menuButton1>MenuGameDiary menuButton1>MenuGameMain"));
        ASSERT_TRUE(driver.go("menuButton4", "quitApp"));
    }
}

TEST(ClosingOnTheReport, SavesWhatLeavingItSaves) {
    const InFront inFront;
    std::string saves[2];
    uint32_t dayEnd = 900000;
    for (const bool closes : {false, true}) {
        const PlayerHome home;
        int32_t missions = 0;
        {
            CareerDriver driver(home, 1, true);
            ASSERT_TRUE(driver.begin("menuButton2>MenuNewYear menuButton1>MenuEnlist"));
            missions = Database::instance()->player().missions;
            ASSERT_TRUE(toReport(driver));
            ASSERT_NO_FATAL_FAILURE(saveAfterReport(driver, closes, dayEnd));
        }
        saves[closes ? 1 : 0] = home.save();
        CareerDriver next(home, 2);
        ASSERT_TRUE(next.screens->untilIdle("MenuMain"));
        ASSERT_TRUE(next.walk("menuButton2>MenuGameMain"));
        EXPECT_EQ(Database::instance()->player().missions, missions + 1);
        for (const char* element : {"orders", "note"})
            EXPECT_EQ(next.text(element), "");
        ASSERT_TRUE(next.takeOff());
        next.look();
        EXPECT_EQ(next.state(), "MenuGameFinishMission") << "its log is known";
    }
    EXPECT_TRUE(saves[0] == saves[1]);
}

TEST_F(Closing, AsksNobodyWhoLosesNothing) {
    ASSERT_TRUE(driver.walk("menuBack>MenuMain menuButton2>MenuGameMain"));
    EXPECT_TRUE(close()) << "all is saved";
    zel::Platform::getInstance().forgetQuit();
    ASSERT_TRUE(driver.takeOff());
    EXPECT_TRUE(close()) << "so are the orders";
    zel::Platform::getInstance().forgetQuit();
    ASSERT_TRUE(driver.walk("menuBack>MenuGameMain menuBack>MenuMain careers>MenuCareers "
                            "another>MenuNewService menuButton1>MenuNewYear "
                            "menuButton1>MenuEnlist"));
    EXPECT_TRUE(close()) << "a career that is not begun";
}

TEST_F(Closing, SavesAndQuits) {
    ASSERT_TRUE(driver.takeOff());
    EXPECT_FALSE(close());
    ASSERT_TRUE(driver.screens->untilIdle(Question));
    EXPECT_NE(driver.text("text2").find("If you save, the flight can still"), std::string::npos);
    ASSERT_TRUE(driver.go("menuButton1", "quitApp", CareerDriver::How::Pointer));
    EXPECT_TRUE(Database::instance()->isSaved(SaveFileName));
}

TEST_F(Closing, QuitsWithoutSavingOnlyByItsButton) {
    EXPECT_FALSE(close());
    ASSERT_TRUE(driver.screens->untilIdle(Question));
    driver.screens->key(zel::KeyEscape);
    ASSERT_TRUE(driver.screens->untilIdle("MenuGameMain")) << "Escape loses nothing";
    EXPECT_FALSE(close());
    ASSERT_TRUE(driver.screens->untilIdle(Question));
    ASSERT_TRUE(driver.go("menuButton2", "quitApp", CareerDriver::How::Pointer));
    EXPECT_EQ(home.save(), "");
}

TEST_F(Closing, ASignalEndsTheProgramUnasked) {
    std::raise(SIGTERM);
    EXPECT_TRUE(zel::ZelLoop::isFinished());
    zel::Platform::getInstance().forgetQuit();
    EXPECT_TRUE(zel::ZelLoop::isFinished()) << "nobody refuses a signal";
}

} // namespace
