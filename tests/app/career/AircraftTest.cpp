#include "app/career/Aircraft.h"

#include <algorithm>
#include <map>

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

struct Row {
    int32_t from, to; // yyyymm
    uint32_t denominator;
    const char* planes;
};

// The war of each side by months, from the first row's past to the last one's future.
constexpr Row AlliedRows[] = {
    {190001, 191602, 2, "dh2 nieuport11 "},
    {191603, 191605, 3, "dh2 nieuport11 nieuport17 "},
    {191606, 191607, 2, "dh2 nieuport17 "},
    {191608, 191609, 2, "nieuport17 spad7early "},
    {191610, 191611, 2, "soppup spad7early "},
    {191612, 191702, 2, "soppup soptriplane "},
    {191703, 191703, 4, "se5a se5a soppup soptriplane "},
    {191704, 191705, 5, "se5a se5a soppup soptriplane spad7 "},
    {191706, 191707, 10,
     "se5a se5a se5a sopcamel sopcamel spad13 spad13 soppup soptriplane spad7 "},
    {191708, 191801, 4, "nieuport28 se5a sopcamel spad13 "},
    {191802, 192112, 6, "sopcamel sopcamel nieuport28 se5a sopdolphin spad13 "},
};
constexpr Row CentralRows[] = {
    {190001, 191604, 1, "fokkere3 "},
    {191605, 191606, 3, "fokkere3 fokkere3 halberstadtd2 "},
    {191607, 191609, 3, "halberstadtd2 halberstadtd2 fokkere3 "},
    {191610, 191610, 2, "albatrosd2 halberstadtd2 "},
    {191611, 191612, 1, "albatrosd2 "},
    {191701, 191701, 2, "albatrosd2 albatrosd2late "},
    {191702, 191702, 1, "albatrosd2late "},
    {191703, 191703, 2, "albatrosd2late albatrosd3 "},
    {191704, 191706, 1, "albatrosd3 "},
    {191707, 191707, 1, "albatrosd5 "},
    {191708, 191708, 2, "albatrosd5 pfalzd3a "},
    {191709, 191709, 3, "albatrosd5 fokkerdr1 pfalzd3a "},
    {191710, 191712, 10,
     "fokkerdr1 fokkerdr1 fokkerdr1 fokkerdr1 fokkerdr1 fokkerdr1 fokkerdr1 pfalzd3a pfalzd3a "
     "albatrosd5 "},
    {191801, 191804, 1, "fokkerdr1 "},
    {191805, 191806, 1, "fokkerd7 "},
    {191807, 191808, 3, "fokkerd7 fokkerd7f pfalzd12 "},
    {191809, 191812, 3, "fokkerd7f fokkerd8 pfalzd12 "},
    {191901, 192112, 1, "fokkerd8 "},
};

TEST_F(AircraftTest, DrawsEveryPeriodByItsShares) {
    const auto check = [this](bool allied, const auto& rows) {
        for (const Row& expected : rows)
            for (const int32_t month : {expected.from, expected.to})
                EXPECT_EQ(row(allied, month / 100, month % 100, expected.denominator),
                          expected.planes)
                    << month;
    };
    check(true, AlliedRows);
    check(false, CentralRows);
}

TEST_F(AircraftTest, GivesEachNationWhatItFlew) {
    const zel::Random before(random);
    for (int i = 0; i < 50; ++i) {
        EXPECT_EQ(chooseNationPlane(France, 1916, 1, 1), "nieuport11");
        EXPECT_EQ(chooseNationPlane(Germany, 1918, 5, 1), "fokkerd7");
    }
    EXPECT_GT(drawsBetween(before, random), 100) << "refused types are drawn anew";

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

TEST_F(AircraftTest, LooksFurtherBackForANation) {
    // All that these months offer is refused by France: the draws before November 1916 is reached.
    for (const auto& [month, refused] :
         {std::pair{191612, 200}, {191701, 225}, {191702, 250}, {191703, 275}}) {
        int64_t fewest = 1000;
        for (int i = 0; i < 30; ++i) {
            const zel::Random before(random);
            EXPECT_EQ(chooseNationPlane(France, month / 100, month % 100, 1), "spad7early");
            fewest = std::min(fewest, drawsBetween(before, random));
        }
        EXPECT_EQ(fewest, refused + 1) << month;
    }
}

TEST_F(AircraftTest, EndsWithTheLastTypeDrawn) {
    for (const auto& [year, month, allowed] :
         {std::tuple{1916, 1, "dh2 nieuport11 "}, {1917, 5, "se5a soppup soptriplane spad7 "}}) {
        for (int i = 0; i < 20; ++i) {
            const zel::Random before(random);
            const zel::String plane = chooseNationPlane(Usa, year, month, 1);
            EXPECT_EQ(drawsBetween(before, random), 400) << "all of them refused";
            EXPECT_NE(std::string(allowed).find(std::string(plane) + " "), std::string::npos)
                << plane.c_str() << ": the last rounds are at the true date again";
        }
    }
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
