#include "app/book/SquadronsToJoin.h"

#include <gtest/gtest.h>

#include "app/book/BookTables.h"
#include "app/career/Database.h"
#include "engine/core/Registry.h"
#include "tests/support/HandMade.h"
#include "tests/support/PinnedRun.h"

namespace {

/// Squadrons and postings of the spring of 1917.
struct SquadronsToJoinTest : testing::Test {
    SquadronsToJoinTest() {
        add("501011", {"date=19170201 until=19170725 aircraft=albatrosd3",
                       "date=19160801 until=19170131 aircraft=halberstadtd2"});
        add("501002", {"date=19160901 until=19170331 aircraft=albatrosd3"}); // gone
        add("501301", {"date=19170430 until=19181111 aircraft=albatrosd3"}); // on the last day
        add("501501", {"date=19170101 aircraft=albatrosd3"});                // has no name
        add("102056", {"date=19170408 until=19181111 aircraft=se5a"});
        add("102046", {"date=19160420 until=19170712 aircraft=nieuport17"}); // out of date
        addPilotFile("Kurt Wolff", "date=19161106 until=19170506 unit=501011 acelevel=1");
        addPilotFile("Manfred von Richthofen", "date=19170116 until=19180421 unit=501011");
        addPilotFile("Oswald Boelcke", "date=19160901 until=19161028 unit=501011 acelevel=1");
        addPilotFile("Otto Unknown", "date=19170401 unit=501301 acelevel=2");
    }

    void add(const char* key, const std::vector<const char*>& lines) {
        emptySquadron(career, zel::toInt(std::string_view(key).substr(0, 3)));
        addFile(career, key, lines);
    }
    void addPilotFile(const char* name, const char* line) {
        PilotFile file = blank<PilotFile>();
        zel::copyText(file.name, name);
        file.lines[0] = int32_t(career.dataLines.size());
        career.dataLines.push_back(blank<DataLine>());
        zel::copyText(career.dataLines.back().text, line);
        career.pilotFiles.push_back(file);
    }
    std::string rows(int32_t service) const {
        std::string all;
        for (const SquadronToJoin& squadron :
             squadronsToJoin(career, BookTables::instance(), service, 1917, 4))
            all +=
                squadron.key.c_str() + (" " + squadron.machine) + " " + squadron.knownPilot + "\n";
        return all;
    }

    PinnedRun run{1};
    Database career;
};

TEST_F(SquadronsToJoinTest, AreThoseOfTheMonth) {
    EXPECT_EQ(rows(ServiceGerman), "501011 albatrosd3 Manfred von Richthofen\n"
                                   "501301 albatrosd3 Otto Unknown\n");
    EXPECT_EQ(rows(ServiceEnglish), "102046 se5a \n102056 se5a \n")
        << "one whose types nobody flies any more gets what is flown";
    EXPECT_EQ(rows(ServiceFrench), "");
    zel::Registry::set("albatrosd3", "0");
    zel::Registry::set("se5a", "0");
    EXPECT_EQ(rows(ServiceGerman), "") << "nothing that he has";
    EXPECT_EQ(rows(ServiceEnglish), "102046 soppup \n");
}

TEST_F(SquadronsToJoinTest, AreShownInColumns) {
    const auto german = squadronsToJoin(career, BookTables::instance(), ServiceGerman, 1917, 4);
    ASSERT_EQ(german.size(), 2U);
    EXPECT_EQ(squadronRow(german[0], "Cambrai"),
              "Jasta 11              Albatros D.III      Near Cambrai    M. von Richthofen");
    EXPECT_EQ(squadronRow(german[1], "Zeebrugge on the sea").view().substr(0, 59),
              "MFJ 1                 Albatros D.III      Near Zeebrug... O");
}

} // namespace
