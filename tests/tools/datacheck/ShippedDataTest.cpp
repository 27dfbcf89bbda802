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
        ADD_FAILURE() << finding.text();
}

// Otherwise the planning of a mission tries a hundred times for nothing.
TEST(ShippedData, GivesEverySquadronSomethingToFlyInEveryMonth) {
    std::istringstream table(datacheck::coverageTable("Data").c_str());
    std::string row;
    std::getline(table, row);
    int32_t rows = 0;
    while (std::getline(table, row)) {
        EXPECT_NE(row.find(" 100 % "), std::string::npos) << row;
        ++rows;
    }
    EXPECT_EQ(rows, 36 + 36 + 10 + 36) << "the Americans come in February 1918";
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
