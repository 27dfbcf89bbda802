#include <fstream>
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
// reads the missions that are made of it.
TEST(ShippedData, HasTheTimeBeforeTheSky) {
    const std::string text = fileText("Data/Missions/GenericTemplate.Mission");
    EXPECT_LT(text.find("  Time = "), text.find("  CloudConfig = "));
    EXPECT_LT(text.find("  CloudConfig = "), text.find("MCU_"));
}

TEST(ShippedData, NamesTheSquadronsAsTheScreensDo) {
    std::ifstream table(WINGTALLY_HISTORY "/squadrons.csv");
    std::string row;
    std::getline(table, row);
    int32_t rows = 0;
    for (; std::getline(table, row); ++rows) {
        std::istringstream fields(row);
        std::string key;
        std::string nation;
        std::string name;
        std::getline(fields, key, ',');
        std::getline(fields, nation, ',');
        std::getline(fields, name, ',');
        EXPECT_EQ(unitName(std::stoi(key)), name) << row;
    }
    EXPECT_GT(rows, 800);
}

} // namespace
