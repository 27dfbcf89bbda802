#include "app/career/Aircraft.h"

#include <set>

#include <gtest/gtest.h>

#include "app/aircraft/AircraftTable.h"
#include "app/career/Nation.h"
#include "engine/core/Random.h"
#include "tests/support/Printers.h"

namespace {

// The plans that MissionPlanningTest compares have what the other nations draw in each month.
TEST(Aircraft, GivesTheAmericansWhatTheyFlew) {
    zel::Random random(21);
    setPlaneRandom(&random);
    std::set<zel::String> planes;
    for (int i = 0; i < 500; ++i)
        planes.insert(chooseNationPlane(Usa, 1918, 3, 1));
    EXPECT_EQ(planes, (std::set<zel::String>{"nieuport28", "sopcamel", "spad13"}));
    setPlaneRandom(nullptr);
}

TEST(Aircraft, NamesTheTypes) {
    initPlaneNames();
    initPlaneNames(); // a second time clears first
    ASSERT_EQ(planeIdentifiers().size(), std::size(AircraftRows));
    ASSERT_EQ(planeDisplayNames().size(), planeIdentifiers().size());
    EXPECT_EQ(planeDisplayName("albatrosd5"), "Albatros D. Va");
    EXPECT_TRUE(isAlliedPlane(planeIndex("sopdolphin")) && !isAlliedPlane(planeIndex("fokkere3")));
    EXPECT_EQ(payloadId("se5a") + payloadId("dh2"), "20");
    EXPECT_EQ(planeDisplayName("gothag5"), "gothag5");
    EXPECT_EQ(planeIndex("gothag5"), -1);
    EXPECT_EQ(payloadId("gothag5"), "0");
}

} // namespace
