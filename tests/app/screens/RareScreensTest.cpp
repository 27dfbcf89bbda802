// Screens that players seldom see, kept as pictures as in ScreensInWindowTest. Some are kept in
// English only, since wingtally-menucheck checks in every language that the texts fit.
#include <filesystem>

#include <SDL.h>
#include <gtest/gtest.h>

#include "app/career/Aircraft.h"
#include "app/career/Database.h"
#include "app/mission/DailyMission.h"
#include "app/record/Sqlite.h"
#include "app/screens/WarProgress.h"
#include "engine/core/Clock.h"
#include "engine/core/Registry.h"
#include "engine/graphics/Canvas.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "engine/window/ZelLoop.h"
#include "tests/app/screens/BookFlights.h"
#include "tests/app/screens/CareerDriver.h"
#include "tests/app/screens/LogBooks.h"
#include "tests/engine/menu/GoldenPicture.h"
#include "tests/engine/window/Events.h"
#include "tests/support/HandMade.h"

namespace {

constexpr const char* Beginning = "menuButton2>MenuNewYear menuButton1>MenuEnlist";

class RareScreens : public testing::Test {
protected:
    explicit RareScreens(const char* locale = "en_GB.UTF-8")
        : language(locale, 2), driver(home, 1, true, locale) {}

    void expectKept(const Picture& picture, const std::string& name) {
        const std::string file = language + "/" + name + ".jpg";
        EXPECT_TRUE(isGoldenPicture(picture, std::string(GOLDEN_FOLDER) + "/" + file,
                                    std::string(NEW_PICTURES_FOLDER) + "/" + file));
    }
    void expectKept(const std::string& name) { expectKept(driver.shot(), name); }
    /// When he closes the window.
    bool isAsked() {
        zel::Platform::getInstance().handleEvent(quitEvent());
        for (int32_t frame = 0; frame < 20; ++frame) {
            if (zel::ZelLoop::isFinished())
                return false;
            driver.screens->step();
        }
        return driver.screens->untilIdle("MenuNotificationUnsaved");
    }

    /// States that no button leads to.
    void show(const char* screen, const std::string& name) {
        driver.screens->menu().setTransition(screen);
        ASSERT_TRUE(driver.screens->untilIdle(screen));
        expectKept(name);
    }
    /// On to a letter, which walk() would read.
    void turnTo(const char* letter) {
        driver.screens->menu().hitWidget("menuButton1");
        ASSERT_TRUE(driver.screens->untilIdle(letter)) << driver.state();
    }

    const InFront inFront{false};
    const PlayerHome home;
    const std::string language;
    CareerDriver driver;
};

class RareStates : public RareScreens, public testing::WithParamInterface<const char*> {
protected:
    RareStates() : RareScreens(GetParam()) {}

    /// Adds `count` flights of the player's, three days apart, from that day on. The next day is
    /// today.
    static void serve(int32_t count, Calendar day) {
        Database& career = *Database::instance();
        for (int32_t flight = 0; flight < count; ++flight, day.addDays(3)) {
            setDate(career, day.getYear(), day.getMonth(), day.getDay());
            addFlight(career, 1 + flight % 3);
        }
        day.subtractDays(1);
        setDate(career, day.getYear(), day.getMonth(), day.getDay());
    }
    void fall(const char* letter) {
        addFallToBook(*Database::instance());
        driver.screens->menu().setTransition("MenuGameCombatReport");
        ASSERT_TRUE(driver.screens->untilIdle("MenuGameCombatReport"));
        ASSERT_TRUE(driver.walk("menuButton1>MenuGameAdvance"));
        turnTo("MenuGameFallen");
        expectKept(letter);
    }
};
INSTANTIATE_TEST_SUITE_P(Tables, RareStates,
                         testing::Values("en_GB.UTF-8", "de_DE.UTF-8", "fr_FR.UTF-8", "es_AR.UTF-8",
                                         "it_CH.UTF-8", "pl_PL.UTF-8"));

uint32_t quickTime = 0;
/// A millisecond per reading.
uint32_t quickTicks() { return ++quickTime; }

TEST_F(RareScreens, TheWarIsFought) {
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    ASSERT_TRUE(
        driver.walk("careers>MenuCareers another>MenuNewService menuButton2>MenuNewYear "
                    "menuButton3>MenuNewMonth month4>MenuEnlist menuButton1>MenuNewCareer"));
    driver.screens->moveTo(5, 5);
    driver.screens->step();
    quickTime = zel::ticks();
    zel::setTickSource(quickTicks);
    {
        WarProgress progress;
        for (int32_t mission = 0; mission < 150; ++mission) // shown once, at the hundredth or so
            progress.onWarProgress(Calendar(1917, 1, 21), 0.4F);
        expectKept({1024, 768, zel::Canvas::getInstance().readPixels()}, "MenuNewCareer_War");
    }
    EXPECT_FALSE(driver.widget("progress")->isVisible());
}

TEST_P(RareStates, ThereIsNothingToFly) {
    ASSERT_TRUE(driver.begin(Beginning));
    for (const zel::String& plane : planeIdentifiers())
        zel::Registry::set(plane, "0");
    ASSERT_TRUE(driver.toOrders());
    expectKept("MenuGameStartMission_Skip");
    ASSERT_TRUE(driver.walk("menuBack>MenuGameMain menuBack>MenuMain careers>MenuCareers "
                            "another>MenuNewService menuButton2>MenuNewYear "
                            "menuButton1>MenuEnlist"));
    expectKept("MenuEnlist_NoSquadron");
    driver.widget("name")->setText("");
    expectKept("MenuEnlist_NoName");
    driver.widget("name")->setText("Albert Reed");
    driver.screens->menu().setFocus("name");
    driver.screens->key(0, '/');
    expectKept("MenuEnlist_Refused");
}

// His service, his promotion, his fall, and what the book says afterwards.
TEST_P(RareStates, TheFallenIsAFrenchman) {
    ASSERT_TRUE(driver.begin("menuButton1>MenuNewYear menuButton1>MenuEnlist"));
    Database::instance()->player().missions = 0;
    serve(3, {1917, 6, 20});
    driver.screens->menu().setTransition("MenuGameAdvance");
    ASSERT_TRUE(driver.screens->untilIdle("MenuGameAdvance"));
    turnTo("MenuGameCitation");
    expectKept("MenuGameCitation_Rank");
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameDiary menuButton1>MenuGameMain"));
    serve(20, {1917, 7, 1});
    show("MenuGameRecord", "MenuGameRecord_French");
    fall("MenuGameFallen_French");
}

TEST_P(RareStates, TheFallenIsAGerman) {
    ASSERT_TRUE(driver.begin("menuButton3>MenuNewYear menuButton1>MenuEnlist"));
    zel::copyText(Database::instance()->player().name, "Wolfram-Friedrich von Hohenlohe");
    serve(30, {1917, 6, 20});
    show("MenuGameRecord", "MenuGameRecord_German");
    fall("MenuGameFallen_German");
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameDiary"));
    expectKept("MenuGameDiary_Fallen");
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameMain logbook>MenuGameLogbook"));
    expectKept("MenuGameLogbook_Fallen");
}

TEST_F(RareScreens, TheLogIsGrowing) {
    ASSERT_TRUE(driver.begin(Beginning));
    ASSERT_TRUE(driver.takeOff());
    for (const char* log : {"T:0 AType:0 MFile:WingtallyMission.mission\n",
                            "T:0 AType:0 MFile:WingtallyMission.mission\nT:9"}) {
        home.folder.write(home.simulator + "/data/missionReport(2009-01-01_10-00-00)[0].txt", log);
        driver.look();
    }
    expectKept("MenuGameFinishMission_Growing");
}

TEST_F(RareScreens, ThePlayerIsElsewhereWhileItWaits) {
    ASSERT_TRUE(driver.begin(Beginning));
    ASSERT_TRUE(driver.takeOff());
    ASSERT_TRUE(driver.fly());
    constexpr std::pair<int32_t, const char*> Absences[] = {
        {SDL_APPINPUTFOCUS | SDL_APPACTIVE, "Put the pointer on this window."},
        {SDL_APPMOUSEFOCUS | SDL_APPACTIVE, "Click into this window."},
        {0, "Put the pointer on this window."}};
    for (const auto& [state, text] : Absences) {
        zel::Platform::getInstance().setAppState(state);
        const zel::Image* hand = driver.widget("hand")->getImage(zel::LookActive);
        driver.look();
        EXPECT_EQ(driver.text("watch").find(text), 0U) << driver.text("watch");
        EXPECT_EQ(driver.widget("hand")->getImage(zel::LookActive), hand);
    }
    EXPECT_EQ(driver.screens->log.linesWith("Update directory"), 0);
    ASSERT_TRUE(driver.go("lookNow", "MenuGameCombatReport")) << "he presses, so he is here";
}

TEST_P(RareStates, ThePlayerHasASuccessorAndNoSquadronOfAName) {
    ASSERT_TRUE(driver.begin(Beginning));
    ASSERT_TRUE(driver.takeOff());
    const std::string mourned = Database::instance()->player().name;
    standin::FlightOptions flight;
    flight.killPlayer = true;
    ASSERT_TRUE(driver.fly(flight));
    driver.look();
    ASSERT_TRUE(driver.screens->untilIdle("MenuGameCombatReport"));
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameAdvance"));
    turnTo("MenuGameFallen");
    ASSERT_TRUE(driver.walk("close>MenuCareers"));
    setWritten(home.folder.file("user/Careers/0001 " + mourned + "/savegame_v03.wty"),
               "2009-05-06 21:40");
    ASSERT_TRUE(driver.walk("menuBack>MenuMain careers>MenuCareers"));
    expectKept("MenuCareers_Closed");
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameMain"));
    expectKept("MenuGameMain_Successor");
    Database::instance()->playerSquadron().squadronFile = -1; // of one that was made up
    ASSERT_TRUE(driver.walk("menuButton2>MenuGameViewSquadron menuButton1>MenuGameMain"));
    expectKept("MenuGameMain_NoNumber");
}

TEST_P(RareStates, TheOrdersCannotBeWrittenDown) {
    ASSERT_TRUE(driver.begin(Beginning));
    ASSERT_TRUE(driver.walk("menuBack>MenuMain menuButton2>MenuGameMain"));
    SqliteFile other;
    ASSERT_TRUE(other.open(home.folder.file("user/Saves/record.db"), SqliteFile::MustExist) &&
                other.run("BEGIN IMMEDIATE"));
    ASSERT_TRUE(driver.toOrders());
    expectKept("MenuGameStartMission_Unkept");
    ASSERT_TRUE(driver.walk("menuBack>MenuGameMain"));
    expectKept("MenuGameMain_Unkept");
    ASSERT_TRUE(isAsked()) << "though all is saved";
    EXPECT_FALSE(driver.widget("menuButton2")->isVisible());
    ASSERT_TRUE(driver.walk("menuBack>MenuGameMain"));
    other.rollback();
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameStartMission menuBack>MenuGameMain"));
    EXPECT_EQ(driver.text("note"), "") << "new orders are kept";
}

TEST_P(RareStates, NobodyIsAnAceAndNothingIsKnown) {
    ASSERT_TRUE(driver.begin(Beginning));
    Database& career = *Database::instance();
    for (Pilot& pilot : career.pilots)
        pilot.shotdowns = std::min<uint16_t>(pilot.shotdowns, 4);
    ASSERT_TRUE(driver.walk("menuButton3>MenuGameTopAces"));
    expectKept("MenuGameTopAces_None");
    driver.screens->key(zel::KeyEscape);
    ASSERT_TRUE(driver.screens->untilIdle("MenuGameMain"));
    SqliteFile record;
    ASSERT_TRUE(record.open(home.folder.file("user/Saves/record.db"), SqliteFile::MustExist) &&
                record.run("DELETE FROM posting"));
    ASSERT_TRUE(driver.walk("menuButton2>MenuGameViewSquadron pilot.row1>MenuGamePilot"));
    expectKept("MenuGamePilot_Unknown");
    zel::copyText(career.player().name, "Bartholomew-Maximilian Feathers");
    career.player().alive = 0;
    show("MenuGameFallen", "MenuGameFallen_NoFlight");
}

TEST_F(RareScreens, TheMissionOfTheOrdersIsGone) {
    ASSERT_TRUE(driver.begin(Beginning));
    ASSERT_TRUE(driver.toOrders());
    std::filesystem::remove(home.simulatorFolder() + "/data/Missions/" + MissionFileName);
    ASSERT_TRUE(driver.walk("menuBack>MenuGameMain"));
    expectKept("MenuGameMain_MissionGone");
}

} // namespace
