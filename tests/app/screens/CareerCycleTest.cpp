// The whole cycle of a career through the program's own screens, without a window.
#include <gtest/gtest.h>

#include "app/career/Database.h"
#include "app/screens/MapSheets.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/ZelLoop.h"
#include "tests/app/screens/CareerDriver.h"

namespace {

struct Beginning {
    const char* way;
    const char* service;
    const char* date;
};
constexpr Beginning French1916 = {
    "menuButton1>MenuNewYear menuButton2>MenuNewMonth month3>MenuEnlist", "French", "March 1916"};
constexpr Beginning English1915 = {"menuButton2>MenuNewYear menuButton1>MenuEnlist", "English",
                                   "December 1915"};
constexpr Beginning German1916 = {
    "menuButton3>MenuNewYear menuButton2>MenuNewMonth month1>MenuEnlist", "German", "January 1916"};

int32_t dateNow() { return Database::instance()->calendar().dateNumber(); }

/// What the squadron office and its two lists say.
std::vector<std::string> officeTexts(CareerDriver& driver) {
    std::vector<std::string> texts;
    for (const char* element : {"date", "airport", "squadron", "menuButton1"})
        texts.push_back(driver.text(element));
    for (const auto& [way, rows] :
         {std::pair{"menuButton2>MenuGameViewSquadron", 12}, {"menuButton3>MenuGameTopAces", 10}}) {
        EXPECT_TRUE(driver.walk(way));
        for (int32_t row = 1; row <= rows; ++row)
            for (const char* part : {"row", "victories"})
                texts.push_back(driver.text(("pilot." + (part + std::to_string(row))).c_str()));
        EXPECT_TRUE(driver.go("menuButton1", "MenuGameMain"));
    }
    return texts;
}

void makeCareer(CareerDriver& driver, const Beginning& beginning) {
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    ASSERT_TRUE(driver.walk(std::string("careers>MenuCareers another>MenuNewService ") +
                            beginning.way + " menuButton1>MenuNewCareer"));
    EXPECT_EQ(driver.text("menuButton1"), std::string("Service: ") + beginning.service);
    EXPECT_EQ(driver.text("menuButton2"), std::string("Start date: ") + beginning.date);
    EXPECT_EQ(driver.text("menuButton3").find("Your pilot's name: "), 0U);
    ASSERT_TRUE(driver.go("menuButton4", "MenuGameMain"));
    std::string month = beginning.date;
    month.replace(month.find(' '), 1, "-");
    EXPECT_NE(driver.text("date").find("-" + month), std::string::npos);
}

void flyAMission(CareerDriver& driver) {
    ASSERT_TRUE(driver.toOrders());
    EXPECT_NE(driver.text("roster.row1").find(" (you) "), std::string::npos);
    ASSERT_TRUE(driver.go("menuButton4", "MenuGameFinishMission"));
    ASSERT_TRUE(driver.fly());
    const int32_t before = dateNow();
    driver.look();
    ASSERT_TRUE(driver.screens->untilIdle("MenuGameCombatReport"));
    for (const char* side : {"left1", "right1"})
        EXPECT_NE(driver.text(side).find(" - Kills: "), std::string::npos);
    EXPECT_EQ(dateNow(), before) << "the war moves on after the report";
    ASSERT_TRUE(driver.closeReport());
    EXPECT_GT(dateNow(), before);
    EXPECT_EQ(driver.text("date"), Database::instance()->calendar().displayText().c_str());
}

TEST(CareerCycle, GoesRoundAndIsContinued) {
    for (const Beginning& beginning : {French1916, English1915, German1916}) {
        SCOPED_TRACE(beginning.service);
        const PlayerHome home;
        std::vector<std::string> left;
        {
            CareerDriver driver(home);
            ASSERT_NO_FATAL_FAILURE(makeCareer(driver, beginning));
            const std::string begun = home.save();
            EXPECT_NE(begun, "");
            ASSERT_NO_FATAL_FAILURE(flyAMission(driver));
            EXPECT_TRUE(home.save() == begun) << "after that only leaving the office saves";
            left = officeTexts(driver);
            for (const Squadron& squadron : Database::instance()->squadrons)
                EXPECT_NE(sheetOfBase(squadron.baseName), nullptr) << squadron.baseName;
            driver.screens->menu().hitWidget("menuButton4");
            for (int32_t frame = 0; frame < 300 && !zel::ZelLoop::isQuitRequested(); ++frame)
                driver.screens->step();
            EXPECT_TRUE(zel::ZelLoop::isQuitRequested());
        }
        CareerDriver next(home, 2);
        ASSERT_TRUE(next.screens->untilIdle("MenuMain"));
        ASSERT_TRUE(next.go("menuButton2", "MenuGameMain"));
        EXPECT_EQ(officeTexts(next), left);
    }
}

TEST_F(CareerScreens, FlyWhatIsSwitchedOn) {
    ASSERT_TRUE(driver.begin(English1915.way));
    ASSERT_TRUE(driver.walk("menuBack>MenuMain menuButton3>MenuConfiguration "
                            "menuButton2>MenuConfigurationPlanes1"));
    EXPECT_EQ(driver.text("item1"), "Airco DH2: On");
    for (int32_t item = 1; item <= 12; ++item)
        ASSERT_TRUE(driver.walk("item" + std::to_string(item)));
    EXPECT_EQ(driver.text("item1"), "Airco DH2: Off");
    EXPECT_EQ(driver.widget("item1")->getKind(), "planeoff");
    ASSERT_TRUE(driver.walk("menuBack>MenuConfiguration menuBack>MenuMain menuButton2>MenuGameMain "
                            "menuButton1>MenuGameStartMission"));
    EXPECT_EQ(driver.text("menuButton4"), "Skip Mission (no flyable plane available)");
    ASSERT_TRUE(driver.go("menuButton4", "MenuGameCombatReport")) << "there is no flight to finish";
    EXPECT_EQ(driver.text("left1"), "(No mission played.)");
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameAdvance menuButton1>MenuGameDiary "
                            "menuButton1>MenuGameMain menuBack>MenuMain "
                            "menuButton3>MenuConfiguration menuButton2>MenuConfigurationPlanes1 "
                            "item1 item2 menuBack>MenuConfiguration menuBack>MenuMain "
                            "menuButton2>MenuGameMain menuButton1>MenuGameStartMission"));
    EXPECT_EQ(driver.text("menuButton4"), "Start Mission");
    EXPECT_TRUE(driver.text("roster.row1").find("Airco DH2") != std::string::npos ||
                driver.text("roster.row1").find("Nieuport 11") != std::string::npos)
        << driver.text("roster.row1");
}

TEST_F(CareerScreens, MoveTheSquadronToTheMapThatIsOn) {
    ASSERT_TRUE(driver.begin(English1915.way));
    Database::instance()->playerSquadron().onChannelMap = 0;
    ASSERT_TRUE(driver.walk("menuBack>MenuMain menuButton3>MenuConfiguration "
                            "menuButton1>MenuConfigurationMaps"));
    EXPECT_EQ(driver.text("menuButton1"), "Western Front: On");
    ASSERT_TRUE(driver.walk("menuButton2 menuButton1"));
    EXPECT_TRUE(driver.widget("channelOff")->isVisible());
    EXPECT_FALSE(driver.widget("westernOff")->isVisible())
        << "with both off the career stays there";
    ASSERT_TRUE(driver.walk("menuButton2"));
    EXPECT_EQ(driver.text("menuButton1"), "Western Front: Off");
    EXPECT_EQ(driver.text("menuButton2"), "The Channel: On");
    EXPECT_FALSE(driver.widget("channelOff")->isVisible());
    EXPECT_TRUE(driver.widget("westernOff")->isVisible());
    ASSERT_TRUE(driver.walk("menuBack>MenuConfiguration menuBack>MenuMain "
                            "menuButton2>MenuGameMain"));
    EXPECT_EQ(Database::instance()->playerSquadron().onChannelMap, 1);
    EXPECT_EQ(driver.text("airport"),
              std::string("Current base: Near ") + Database::instance()->playerSquadron().baseName);
    EXPECT_EQ(driver.widget("sheet")->getKind(),
              sheetOfBase(Database::instance()->playerSquadron().baseName));
}

TEST_F(CareerScreens, AnswerAnInvitation) {
    ASSERT_TRUE(driver.begin(French1916.way));
    Database& career = *Database::instance();
    const int32_t own = career.player().squadron;
    const int32_t other = driver.invite();
    ASSERT_TRUE(driver.go("menuButton1", "MenuGameInvite"));
    EXPECT_NE(driver.text("line2").find("Will you accept the invitation?"), std::string::npos);
    ASSERT_TRUE(driver.walk("menuBack>MenuGameMain menuButton1>MenuGameInvite")) << "still pending";
    ASSERT_TRUE(driver.go("menuButton4", "MenuGameMain"));
    EXPECT_EQ(career.previousInvitation, other);
    EXPECT_EQ(career.player().squadron, own);

    ASSERT_EQ(driver.invite(), other);
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameInvite menuButton3>MenuGameMain"));
    EXPECT_EQ(career.player().squadron, other);
}

TEST(CareerCycle, TellsWhomASuccessorFollows) {
    const PlayerHome home;
    std::string news;
    {
        CareerDriver driver(home);
        ASSERT_TRUE(driver.begin(English1915.way));
        const std::string fallen = Database::instance()->player().name;
        EXPECT_EQ(driver.text("pilot"), "Flight Sub-Lieutenant " + fallen) << "of the Navy";
        ASSERT_TRUE(driver.takeOff());
        standin::FlightOptions flight;
        flight.killPlayer = true;
        ASSERT_TRUE(driver.fly(flight));
        ASSERT_TRUE(driver.comeBack());
        news = fallen + " is dead. His place is taken by Flight Sub-Lieutenant " +
               Database::instance()->player().name + ".";
        EXPECT_EQ(driver.text("pilot"), news);
        ASSERT_TRUE(driver.walk("menuBack>MenuMain menuButton2>MenuGameMain"));
        EXPECT_EQ(driver.text("pilot"), news) << "also when he comes back";
    }
    CareerDriver driver(home, 2);
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    ASSERT_TRUE(driver.walk("menuButton2>MenuGameMain"));
    EXPECT_EQ(driver.text("pilot"), news) << "also in a later run";
    ASSERT_TRUE(driver.takeOff());
    standin::FlightOptions flight;
    flight.woundPlayer = true; // and he lives
    ASSERT_TRUE(driver.fly(flight));
    ASSERT_TRUE(driver.comeBack());
    EXPECT_EQ(driver.text("pilot"),
              "Flight Sub-Lieutenant " + std::string(Database::instance()->player().name))
        << "until he has flown";
}

TEST_F(CareerScreens, ShowNothingWithoutACareer) {
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    for (const char* screen : {"MenuGameMain", "MenuGameInvite", "MenuGameViewSquadron",
                               "MenuGameTopAces", "MenuGamePilot", "MenuGameStartMission",
                               "MenuGameFinishMission", "MenuGameCombatReport"}) {
        driver.screens->menu().setTransition(screen);
        ASSERT_TRUE(driver.screens->untilIdle(screen));
        for (const char* button : {"menuButton1", "menuButton3", "menuButton4"})
            if (zel::Widget* widget = driver.widget(button);
                widget != nullptr && widget->getTransition().empty())
                driver.screens->menu().hitWidget(button);
        driver.look();
    }
    EXPECT_TRUE(driver.closeReport());
    EXPECT_EQ(home.save(), "");
}

} // namespace
