// The whole cycle of a career through the program's own screens, without a window.
#include <gtest/gtest.h>

#include "app/career/Database.h"
#include "app/mission/Configuration.h"
#include "app/report/CombatReport.h"
#include "engine/core/Registry.h"
#include "engine/core/ZelLoop.h"
#include "engine/menu/Widget.h"
#include "tests/app/screens/CareerDriver.h"

namespace {

constexpr const char* French1916 = "menuButton1>MenuNewYear menuButton2>MenuNewMonth "
                                   "month3>MenuNewCareer";
constexpr const char* English1915 = "menuButton2>MenuNewYear menuButton1>MenuNewCareer";
constexpr const char* German1918 = "menuButton3>MenuNewYear menuButton4>MenuNewMonth1918 "
                                   "month10>MenuNewCareer";

int32_t dateNow() { return Database::instance()->calendar().dateNumber(); }

/// What the squadron office and its two lists say.
std::vector<std::string> officeTexts(CareerDriver& driver) {
    std::vector<std::string> texts;
    for (const char* element : {"date", "airport", "squadron", "menuButton1"})
        texts.push_back(driver.text(element));
    EXPECT_TRUE(driver.go("menuButton2", "MenuGameViewSquadron"));
    for (int32_t row = 1; row <= 12; ++row)
        texts.push_back(driver.text(("pilot" + std::to_string(row)).c_str()));
    EXPECT_TRUE(driver.walk("menuButton1>MenuGameMain menuButton3>MenuGameTopAces"));
    for (int32_t row = 1; row <= 10; ++row)
        texts.push_back(driver.text(("pilot" + std::to_string(row)).c_str()));
    EXPECT_TRUE(driver.go("menuButton1", "MenuGameMain"));
    return texts;
}

struct Beginning {
    const char* name;
    const char* way;
    const char* service;
    const char* start;
    const char* date;
};

class CareerCycle : public testing::TestWithParam<Beginning> {};

std::string nameOf(const testing::TestParamInfo<Beginning>& info) { return info.param.name; }

} // namespace

TEST_P(CareerCycle, GoesRoundAndIsContinued) {
    const PlayerHome home;
    std::vector<std::string> left;
    {
        CareerDriver driver(home);
        ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
        ASSERT_TRUE(driver.walk(std::string("menuButton1>MenuNewService ") + GetParam().way));
        EXPECT_EQ(driver.text("menuButton1"), GetParam().service);
        EXPECT_EQ(driver.text("menuButton2"), GetParam().start);
        EXPECT_EQ(driver.text("menuButton3").find("Your pilot's name: "), 0U);
        ASSERT_TRUE(driver.go("menuButton4", "MenuGameMain"));
        EXPECT_NE(driver.text("date").find(GetParam().date), std::string::npos);
        EXPECT_EQ(home.save(), "") << "only leaving the office saves";

        ASSERT_TRUE(driver.toOrders());
        EXPECT_NE(home.mission(), "");
        EXPECT_NE(driver.text("line3").find(Database::instance()->player().name),
                  std::string::npos);
        ASSERT_TRUE(driver.go("menuButton4", "MenuGameFinishMission"));
        ASSERT_TRUE(driver.fly());
        const int32_t before = dateNow();
        driver.look();
        ASSERT_TRUE(driver.screens->untilIdle("MenuGameCombatReport"));
        EXPECT_NE(driver.text("left1").find(" - Kills: "), std::string::npos);
        EXPECT_NE(driver.text("right1").find(" - Kills: "), std::string::npos);
        EXPECT_EQ(dateNow(), before) << "the war moves on behind the report";
        ASSERT_TRUE(driver.go("menuButton1", "MenuGameMain"));
        EXPECT_GT(dateNow(), before);
        EXPECT_EQ(driver.text("date"), Database::instance()->calendar().displayText().c_str());

        left = officeTexts(driver);
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

INSTANTIATE_TEST_SUITE_P(Services, CareerCycle,
                         testing::Values(Beginning{"French", French1916, "Service: French",
                                                   "Start date: March 1916", "March-1916"},
                                         Beginning{"English", English1915, "Service: English",
                                                   "Start date: December 1915", "December-1915"},
                                         Beginning{"German", German1918, "Service: German",
                                                   "Start date: October 1918", "October-1918"}),
                         nameOf);

TEST(CareerScreens, LeadBackToThePageInFront) {
    const PlayerHome home;
    CareerDriver driver(home);
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    EXPECT_TRUE(driver.walk("menuButton1>MenuNewService menuButton1>MenuNewYear "
                            "menuButton1>MenuNewCareer menuBack>MenuNewYear "
                            "menuButton3>MenuNewMonth month12>MenuNewCareer menuBack>MenuNewMonth "
                            "menuBack>MenuNewYear menuButton4>MenuNewMonth1918 "
                            "month1>MenuNewCareer menuBack>MenuNewMonth1918"));
}

TEST(CareerScreens, FlyWhatIsSwitchedOn) {
    const PlayerHome home;
    CareerDriver driver(home);
    ASSERT_TRUE(driver.begin(English1915));
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
    ASSERT_TRUE(driver.walk("menuBack>MenuGameMain menuBack>MenuMain "
                            "menuButton3>MenuConfiguration menuButton2>MenuConfigurationPlanes1 "
                            "item1 item2 menuBack>MenuConfiguration menuBack>MenuMain "
                            "menuButton2>MenuGameMain menuButton1>MenuGameStartMission"));
    EXPECT_EQ(driver.text("menuButton4"), "Start Mission");
    EXPECT_TRUE(driver.text("line3").find("(Airco DH2)") != std::string::npos ||
                driver.text("line3").find("(Nieuport 11)") != std::string::npos)
        << driver.text("line3");
}

TEST(CareerScreens, MoveTheSquadronToTheMapThatIsOn) {
    const PlayerHome home;
    CareerDriver driver(home);
    ASSERT_TRUE(driver.begin(German1918));
    Squadron& squadron = Database::instance()->playerSquadron();
    squadron.onChannelMap = 0;
    ASSERT_TRUE(driver.walk("menuBack>MenuMain menuButton3>MenuConfiguration "
                            "menuButton1>MenuConfigurationMaps"));
    EXPECT_EQ(driver.text("menuButton1"), "Western Front: On");
    ASSERT_TRUE(driver.walk("menuButton1"));
    EXPECT_EQ(driver.text("menuButton1"), "Western Front: Off");
    EXPECT_EQ(driver.text("menuButton2"), "The Channel: On");
    ASSERT_TRUE(driver.walk("menuBack>MenuConfiguration menuBack>MenuMain "
                            "menuButton2>MenuGameMain"));
    EXPECT_EQ(Database::instance()->playerSquadron().onChannelMap, 1);
    EXPECT_EQ(driver.text("airport"),
              std::string("Current base: Near ") + Database::instance()->playerSquadron().baseName);
}

TEST(CareerScreens, AnswerAnInvitation) {
    const PlayerHome home;
    CareerDriver driver(home);
    ASSERT_TRUE(driver.begin(French1916));
    Database& career = *Database::instance();
    const int32_t own = career.player().squadron;
    // Another squadron of his nation that has pilots.
    int32_t other = 0;
    while (other == own || career.squadrons[size_t(other)].nation != career.player().nation ||
           career.squadronRoster(other).empty())
        ++other;
    const auto invite = [&] {
        career.invitationSquadron = other;
        career.invitationYear = career.year;
        career.invitationMonth = career.month;
    };

    invite();
    ASSERT_TRUE(driver.go("menuButton1", "MenuGameInvite"));
    EXPECT_NE(driver.text("line2").find("Will you accept the invitation?"), std::string::npos);
    ASSERT_TRUE(driver.walk("menuBack>MenuGameMain menuButton1>MenuGameInvite")) << "still pending";
    ASSERT_TRUE(driver.go("menuButton4", "MenuGameMain"));
    EXPECT_EQ(career.previousInvitation, other);
    EXPECT_EQ(career.player().squadron, own);

    invite();
    ASSERT_TRUE(driver.walk("menuButton1>MenuGameInvite menuButton3>MenuGameMain"));
    EXPECT_EQ(career.player().squadron, other);
}

TEST(CareerScreens, TellWhomASuccessorFollows) {
    const PlayerHome home;
    CareerDriver driver(home);
    ASSERT_TRUE(driver.begin(English1915));
    const std::string fallen = Database::instance()->player().name;
    EXPECT_EQ(driver.text("pilot").find(fallen + ": victories "), 0U);
    ASSERT_TRUE(driver.takeOff());
    standin::FlightOptions flight;
    flight.killPlayer = true;
    ASSERT_TRUE(driver.fly(flight));
    ASSERT_TRUE(driver.comeBack());
    EXPECT_NE(driver.text("pilot").find(", successor to " + fallen + ": "), std::string::npos)
        << driver.text("pilot");
    ASSERT_TRUE(driver.walk("menuBack>MenuMain menuButton2>MenuGameMain"));
    EXPECT_NE(driver.text("pilot").find(fallen), std::string::npos) << "also when he comes back";
}

TEST(CareerScreens, EndWithTheWar) {
    const PlayerHome home;
    CareerDriver driver(home);
    ASSERT_TRUE(driver.begin(German1918));
    for (const auto& [day, label, active] :
         {std::tuple{10, "Next Mission", true}, std::tuple{11, "The War is over!", false}}) {
        Database::instance()->month = 11;
        Database::instance()->day = day;
        ASSERT_TRUE(driver.walk("menuButton2>MenuGameViewSquadron menuButton1>MenuGameMain"));
        EXPECT_EQ(driver.text("menuButton1"), label);
        EXPECT_EQ(driver.widget("menuButton1")->isActive(), active);
    }
}

TEST(CareerScreens, ShowNothingWithoutACareer) {
    const PlayerHome home;
    CareerDriver driver(home);
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    for (const char* screen :
         {"MenuGameMain", "MenuGameInvite", "MenuGameViewSquadron", "MenuGameTopAces",
          "MenuGameStartMission", "MenuGameFinishMission", "MenuGameCombatReport"}) {
        driver.screens->menu().setTransition(screen);
        ASSERT_TRUE(driver.screens->untilIdle(screen));
        for (const char* button : {"menuButton1", "menuButton3", "menuButton4"})
            if (zel::Widget* widget = driver.widget(button);
                widget != nullptr && widget->getTransition().empty())
                driver.screens->menu().hitWidget(button);
        driver.look();
    }
    EXPECT_TRUE(driver.go("menuButton1", "MenuGameMain"));
    EXPECT_EQ(home.save(), "");
}
