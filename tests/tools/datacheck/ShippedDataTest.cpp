#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "app/career/UnitNames.h"
#include "tests/support/Texts.h"
#include "tools/datacheck/DataCheck.h"
#include "tools/datacheck/History.h"

// The program runs in the staged run folder, which has the data as it is delivered.

namespace {

TEST(ShippedData, HasNoFault) {
    for (const tools::Finding& finding : datacheck::checkData("Data"))
        ADD_FAILURE() << finding.text();
}

// The numbers of docs/history.md.
TEST(ShippedData, HoldsTheWholeHistory) {
    tools::Findings findings;
    EXPECT_EQ(datacheck::readHistory("Data", "Squadrons", findings).size(), 284u);
    EXPECT_EQ(datacheck::readHistory("Data", "Pilots", findings).size(), 873u);
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

// Time and sky are drawn when their lines are met, so their order is part of every mission; the
// simulator wants CR LF.
TEST(ShippedData, KeepsTheFormOfTheTemplate) {
    const std::string text = fileText("Data/Missions/GenericTemplate.Mission");
    EXPECT_LT(text.find("  Time = "), text.find("  CloudConfig = "));
    EXPECT_LT(text.find("  CloudConfig = "), text.find("MCU_"));
    EXPECT_EQ(text.rfind("# Mission File Version = 1.0;\r\n", 0), 0u);
    EXPECT_EQ(text.substr(text.size() - 15), "# end of file\r\n");
    for (size_t end = text.find('\n'); end != text.npos; end = text.find('\n', end + 1))
        EXPECT_EQ(text[end - 1], '\r') << "at byte " << end;
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
