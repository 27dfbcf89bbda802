#include <fstream>
#include <map>
#include <sstream>

#include <gtest/gtest.h>

#include "app/career/UnitNames.h"
#include "tests/support/Texts.h"
#include "tools/datacheck/DataCheck.h"

// The program runs in the staged run folder, which has the data as it is delivered.

namespace {

TEST(ShippedData, HasNoFault) {
    for (const tools::Finding& finding : datacheck::checkData("Data"))
        EXPECT_TRUE(finding.isWarning) << finding.text();
}

// They are drawn when their lines are met, so the order is part of every mission. DailyMissionTest
// reads the missions made from the template.
TEST(ShippedData, HasTheTimeBeforeTheSky) {
    const std::string text = fileText("Data/Missions/GenericTemplate.Mission");
    EXPECT_LT(text.find("  Time = "), text.find("  CloudConfig = "));
    EXPECT_LT(text.find("  CloudConfig = "), text.find("MCU_"));
}

// The key of a two-seater unit has no name: no career begins there, and no invitation comes from
// there.
TEST(ShippedData, NamesTheSquadronsAsTheScreensDo) {
    std::ifstream table(WINGTALLY_HISTORY "/squadrons.csv");
    std::string row;
    std::getline(table, row);
    std::map<int32_t, bool> flies; // by the unit's number
    while (std::getline(table, row)) {
        std::istringstream fields(row);
        std::string key;
        std::string nation;
        std::string name;
        std::string aircraft;
        for (std::string* field : {&key, &nation, &name, &aircraft})
            std::getline(fields, *field, ',');
        const int32_t number = std::stoi(key);
        if (hasUnitName(number)) {
            EXPECT_EQ(unitName(number), name) << row;
        }
        flies[number] |= !aircraft.empty();
    }
    for (const auto& [number, hasAircraft] : flies)
        EXPECT_EQ(hasUnitName(number), hasAircraft) << number;
    EXPECT_GT(flies.size(), 600U);
}

} // namespace
