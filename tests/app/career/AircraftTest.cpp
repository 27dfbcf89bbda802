#include "app/career/Aircraft.h"

#include <algorithm>
#include <map>
#include <regex>
#include <sstream>

#include <gtest/gtest.h>

#include "app/aircraft/AircraftTable.h"
#include "app/career/Calendar.h"
#include "app/career/Nation.h"
#include "tests/support/Draws.h"
#include "tests/support/Printers.h"
#include "tests/support/Texts.h"

namespace {

/// Planes drawn from a generator of the test's own while it lives.
class AircraftTest : public testing::Test {
protected:
    AircraftTest() { setPlaneRandom(&random); }
    ~AircraftTest() override { setPlaneRandom(nullptr); }

    /// The planes of a row in the order of the draw, each as often as its share, where the row's
    /// shares add up to `denominator`; a draw beside that leaves "?".
    std::string row(bool allied, int32_t year, int32_t month, uint32_t denominator) {
        std::vector<std::string> planes(denominator);
        for (int i = 0; i < 200; ++i) {
            const zel::Random before(random);
            const uint32_t place = zel::Random(random).next() % denominator;
            const std::string plane(planeForSide(allied, year, month, 1 + i % 31));
            EXPECT_EQ(drawsBetween(before, random, 10), 1);
            planes[place] = planes[place].empty() || planes[place] == plane ? plane : "?";
        }
        std::string text;
        for (const std::string& plane : planes)
            text += plane + " ";
        return text;
    }

    zel::Random random{21};
};

/// yyyymm of "March 1916".
int32_t monthOf(const std::string& text) {
    const size_t blank = text.find(' ');
    int32_t month = 1;
    while (month < 13 && Calendar::monthName(month) != zel::String(text.substr(0, blank)))
        ++month;
    return std::stoi(text.substr(blank + 1)) * 100 + month;
}

/// "SE5a 2/4, Sopwith Pup 1/4, ..." as row() gives it, with the denominator.
std::pair<std::string, uint32_t> sharesOf(const std::string& cell) {
    static const std::regex share("([^,]+) (\\d+)/(\\d+)(, )?");
    std::string planes;
    uint32_t denominator = 0;
    for (std::sregex_iterator at(cell.begin(), cell.end(), share), end; at != end; ++at) {
        const auto& names = planeDisplayNames();
        const auto name = std::find(names.begin(), names.end(), zel::String((*at)[1].str()));
        EXPECT_NE(name, names.end()) << (*at)[1];
        if (name == names.end())
            continue;
        for (int32_t i = 0; i < std::stoi((*at)[2]); ++i)
            planes += std::string(planeIdentifiers()[size_t(name - names.begin())]) + " ";
        denominator = static_cast<uint32_t>(std::stoi((*at)[3]));
    }
    return {planes, denominator};
}

// The document has the figures in the order of the draw; in its tables the Allies come first.
TEST_F(AircraftTest, DrawsWhatTheDocumentSays) {
    static const std::regex line("\\| (\\w+ \\d{4}) \\| (\\w+ \\d{4}) \\| (.*) \\|");
    std::istringstream document(fileText(DOCS_FOLDER "/rules.md"));
    int32_t rows = 0;
    bool allied = true;
    std::smatch cells;
    for (std::string text; std::getline(document, text);) {
        allied = allied && text != "The Germans:";
        if (!std::regex_match(text, cells, line))
            continue;
        ++rows;
        const auto [planes, denominator] = sharesOf(cells[3]);
        for (const int32_t month : {monthOf(cells[1]), monthOf(cells[2])})
            EXPECT_EQ(row(allied, month / 100, month % 100, denominator), planes) << text;
    }
    EXPECT_EQ(rows, 28);
    EXPECT_EQ(row(true, 1900, 1, 2) + row(true, 1921, 12, 6),
              "dh2 nieuport11 sopcamel sopcamel nieuport28 se5a sopdolphin spad13 ");
    EXPECT_EQ(row(false, 1900, 1, 1) + row(false, 1918, 12, 3) + row(false, 1919, 1, 1),
              "fokkere3 fokkerd7f fokkerd8 pfalzd12 fokkerd8 ");
}

TEST_F(AircraftTest, GivesEachNationWhatItFlew) {
    const zel::Random before(random);
    for (int i = 0; i < 50; ++i) {
        EXPECT_EQ(chooseNationPlane(France, 1916, 1, 1), "nieuport11");
        EXPECT_EQ(chooseNationPlane(Germany, 1918, 5, 1), "fokkerd7");
    }
    EXPECT_GT(drawsBetween(before, random), 100) << "refused types are drawn again";

    std::map<std::string, int> planes;
    for (int i = 0; i < 500; ++i) {
        ++planes[std::string(chooseNationPlane(Usa, 1918, 3, 1))];
        ++planes["France " + std::string(chooseNationPlane(France, 1918, 3, 1))];
        ++planes["England " + std::string(chooseNationPlane(England, 1918, 3, 1))];
    }
    std::string names;
    for (const auto& [plane, count] : planes)
        names += plane + ",";
    EXPECT_EQ(names, "England nieuport28,England se5a,England sopcamel,England sopdolphin,"
                     "England spad13,France spad13,nieuport28,sopcamel,spad13,");
}

std::string documentLine(const Aircraft& aircraft) {
    std::string nations;
    for (const auto& [flag, nation] : {std::pair{French, "France"},
                                       {British, "England"},
                                       {American, "USA"},
                                       {German, "Germany"}})
        if ((aircraft.nations & flag) != 0)
            nations += (nations.empty() ? "" : ", ") + std::string(nation);
    const zel::String month = Calendar::monthName(aircraft.firstMonth % 100);
    return std::string("| `") + aircraft.identifier + "` | " + aircraft.displayName + " | " +
           nations + " | " + month.c_str() + " " + std::to_string(aircraft.firstMonth / 100) +
           " |\n";
}

TEST_F(AircraftTest, AreAllInTheDocument) {
    std::string table = "| Type | Name | Flown by | From |\n|---|---|---|---|\n";
    for (const Aircraft& aircraft : AircraftRows)
        table += documentLine(aircraft);
    EXPECT_NE(fileText(DOCS_FOLDER "/data-files.md").find(table + "\n"), std::string::npos)
        << "docs/data-files.md must have this table:\n"
        << table;
}

TEST_F(AircraftTest, NamesTheTypes) {
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
