#include <algorithm>

#include <gtest/gtest.h>

#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/career/Nation.h"
#include "engine/menu/widgets/Widget.h"
#include "tests/app/screens/CareerDriver.h"

// After almost three years that nobody plays.
TEST(ScreenWar, IsJoinedInItsLastMonths) {
    const PlayerHome home;
    CareerDriver driver(home);
    ASSERT_TRUE(
        driver.begin("menuButton3>MenuNewYear menuButton4>MenuNewMonth1918 month10>MenuEnlist"));
    EXPECT_NE(driver.text("date").find("-October-1918"), std::string::npos);
    EXPECT_EQ(Database::instance()->playerSquadron().nation, Germany);
}

// Every period of a war, from orders to report, through the screens.
TEST(ScreenWar, LastsUntilTheArmistice) {
    const PlayerHome home;
    CareerDriver driver(home);
    ASSERT_TRUE(driver.begin("menuButton1>MenuNewYear menuButton1>MenuEnlist"));
    standin::FlightOptions flight;
    int32_t missions = 0;
    int32_t most = 0; // of one of the players
    while (!isWarOver(*Database::instance())) {
        const int32_t before = Database::instance()->calendar().dateNumber();
        ASSERT_TRUE(driver.takeOff());
        flight.seed = uint32_t(++missions);
        ASSERT_TRUE(driver.fly(flight));
        ASSERT_TRUE(driver.comeBack());
        most = std::max<int32_t>(most, Database::instance()->player().missions);
        ASSERT_GT(Database::instance()->calendar().dateNumber(), before);
    }
    EXPECT_FALSE(driver.widget("menuButton1")->isActive());
    EXPECT_GT(missions, 80);
    EXPECT_GT(most, 0);
    ASSERT_TRUE(driver.walk("menuBack>MenuMain menuButton2>MenuGameMain"));
    EXPECT_EQ(driver.text("menuButton1"), "The War is over!");
}
