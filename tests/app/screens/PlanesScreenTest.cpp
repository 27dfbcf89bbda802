#include <algorithm>

#include "app/aircraft/AircraftTable.h"
#include "app/career/Aircraft.h"
#include "engine/core/Registry.h"
#include "engine/menu/widgets/Widget.h"
#include "standin/mission/AircraftTypes.h"
#include "tests/app/screens/CareerDriver.h"

namespace {

/// A thirteenth Allied type, as if it had a row, for as long as this lives.
struct SnipeAdded {
    SnipeAdded() {
        std::vector<Aircraft> rows(std::begin(AircraftRows), std::end(AircraftRows));
        const auto central = std::find_if(rows.begin(), rows.end(),
                                          [](const Aircraft& row) { return !row.isAllied(); });
        Aircraft snipe = rows.front();
        snipe.identifier = "sopsnipe";
        snipe.displayName = "Sopwith Snipe";
        snipe.payload = "2";
        snipe.shape = Shape::Triplane;
        rows.insert(central, snipe);
        AircraftTable::replace(rows);
        initPlaneNames();
    }
    ~SnipeAdded() {
        AircraftTable::replace({std::begin(AircraftRows), std::end(AircraftRows)});
        initPlaneNames();
    }
};

TEST(PlanesScreen, HasASwitchForAThirteenthTypeOfASide) {
    const SnipeAdded added;
    const PlayerHome home;
    CareerDriver driver(home);
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    const auto shown = [&] {
        std::string names;
        for (const char* name : {"item1", "item2", "item12", "sheet1", "sheet2", "sheet3",
                                 "sheetlit1", "sheetlit2", "sheetlit3"})
            if (driver.widget(name)->isVisible())
                names += names.empty() ? name : std::string(" ") + name;
        return names;
    };
    ASSERT_TRUE(driver.walk("menuButton3>MenuConfiguration "
                            "menuButton2>MenuConfigurationPlanes1"));
    EXPECT_EQ(shown(), "item1 item2 item12 sheet2 sheetlit1");
    ASSERT_TRUE(driver.walk("sheet2"));
    EXPECT_EQ(shown(), "item1 sheet1 sheetlit2");
    EXPECT_EQ(driver.text("item1"), "Sopwith Snipe: On");
    ASSERT_TRUE(driver.walk("item1"));
    EXPECT_EQ(driver.text("item1"), "Sopwith Snipe: Off");
    EXPECT_FALSE(zel::Registry::isOn("sopsnipe"));
    EXPECT_TRUE(zel::Registry::isOn("dh2")) << "the first switch of the other sheet";

    ASSERT_TRUE(driver.walk("menuButton1>MenuConfigurationPlanes2"));
    EXPECT_EQ(shown(), "item1 item2 item12") << "twelve need no sheets";
    EXPECT_EQ(driver.text("item1"), "Fokker E. III: On");
    ASSERT_TRUE(driver.walk("menuButton1>MenuConfigurationPlanes1"));
    EXPECT_EQ(driver.text("item1"), "Airco DH2: On") << "the first sheet again";
    EXPECT_GE(standin::findAircraft("SopSnipe"), 0);
    EXPECT_TRUE(isAlliedPlane(planeIndex("sopsnipe")));
    EXPECT_EQ(payloadId("sopsnipe"), "2");
    EXPECT_EQ(planeShape("sopsnipe"), Shape::Triplane);
}

} // namespace
