#include <set>

#include <gtest/gtest.h>

#include "app/aircraft/AircraftTable.h"
#include "app/career/Aircraft.h"
#include "app/mission/MissionGenerator.h"
#include "engine/core/Registry.h"
#include "tests/support/HandMade.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

namespace {

/// An empty career and a generator.
struct Planning {
    SmallWorld world;
    LogCapture lines{zel::LogError};
    Database career;
    MissionGenerator generator;
};

/// A career of four hundred squadrons, some of them with a history.
struct PlannedCareer : Planning {
    explicit PlannedCareer(int32_t service = ServiceGerman) {
        world.addHistory();
        career.createCareer(service);
        zel::Random::setStaticNumber(5);
        generator.reseed(4711);
    }
};

/// A career of these squadrons alone; the player is the first pilot of squadron 0. It is
/// 1 March 1918.
struct TinyCareer : Planning {
    TinyCareer(int32_t nation, int32_t enemy, size_t pilots = 6) {
        setDate(career, 1918, 3, 1);
        squadronOf(career, nation, std::vector<int32_t>(pilots, 0));
        squadronOf(career, enemy, std::vector<int32_t>(pilots, 0));
        generator.reseed(815);
    }
    const zel::String& playersType() {
        generator.planMission(true);
        return generator.plan.front().type;
    }
    void expectNoPlan(bool withPlayer) {
        generator.planMission(withPlayer);
        EXPECT_TRUE(generator.plan.empty());
        EXPECT_EQ(lines.linesWith("!! "), 1) << lines.text();
    }
};

/// What must hold of every plan.
void checkPlan(const Planning& test, bool withPlayer) {
    const std::vector<PlannedPlane>& plan = test.generator.plan;
    std::set<int32_t> pilots;
    std::set<int32_t> squadrons[2];
    int32_t changes = 0;
    for (size_t i = 0; i < plan.size(); ++i) {
        const PlannedPlane& plane = plan[i];
        const Pilot& pilot = test.career.pilots[static_cast<size_t>(plane.pilot)];
        const bool allied = plane.nation < 200;
        pilots.insert(plane.pilot);
        squadrons[allied].insert(plane.squadron);
        changes += i > 0 && allied != (plan[i - 1].nation < 200);
        EXPECT_EQ(plane.name, zel::arrayText(pilot.name));
        EXPECT_TRUE(plane.skill == pilot.skill && plane.shotdowns == pilot.shotdowns &&
                    plane.missions == pilot.missions && plane.pilotFile == pilot.pilotFile);
        EXPECT_EQ(plane.squadron, pilot.squadron);
        EXPECT_EQ(isAlliedPlane(planeIndex(plane.type)), allied) << plane.type.c_str();
        EXPECT_TRUE(!allied || pilot.alive != 0) << "the Allies fly with the living alone";
    }
    EXPECT_EQ(pilots.size(), plan.size()) << "nobody flies twice";
    EXPECT_EQ(changes, 1) << "grouped by side";
    EXPECT_EQ(squadrons[0].size(), 1u);
    EXPECT_EQ(squadrons[1].size(), 1u);
    EXPECT_EQ(pilots.count(test.career.playerPilot), withPlayer ? 1u : 0u);
    EXPECT_TRUE(!withPlayer || plan.front().pilot == test.career.playerPilot);
}

// Compared with tests/reference/plans.py: the pilots and types of 240 plans, and what their
// generator draws after each.
TEST(MissionPlanning, DrawsInTheOrderOfItsRules) {
    for (const int32_t service : {ServiceFrench, ServiceEnglish, ServiceGerman}) {
        PlannedCareer test(service);
        const MissionGenerator later; // is the current one, and leaves the draws alone
        std::string drawn;
        for (uint32_t i = 0; i < 240; ++i) {
            setDate(test.career, 1915 + int32_t(i % 5), int32_t(i / 5) % 12 + 1, 20);
            test.generator.reseed(i + 1);
            test.generator.planMission(i % 3 != 0);
            checkPlan(test, i % 3 != 0);
            for (const PlannedPlane& plane : test.generator.plan)
                drawn += std::to_string(plane.pilot) + plane.type.c_str() + " ";
            drawn += std::to_string(test.generator.random.next()) + "\n";
        }
        EXPECT_EQ(drawn, referenceResult("plans" + std::to_string(service)));
        EXPECT_EQ(test.lines.text().find("!! "), std::string::npos) << test.lines.text();
    }
}

// The Allies draw again for a vacant slot, the Germans fly with men who are gone. Both are
// intended.
TEST(MissionPlanning, DrawsVacantSlotsForTheGermansOnly) {
    PlannedCareer test;
    setDate(test.career, 1917, 6, 1);
    zel::Random deaths(1);
    int32_t fallenGermans = 0;
    size_t replaced = 0;
    for (int32_t i = 0; i < 150 && !HasFailure(); ++i) {
        for (Pilot& pilot : test.career.pilots)
            if (deaths.getInt(0, 2) == 0 && &pilot != &test.career.player())
                pilot.alive = 0;
        const size_t before = test.career.pilots.size();
        test.generator.planMission(i % 2 == 0);
        checkPlan(test, i % 2 == 0);
        replaced += test.career.pilots.size() != before;
        for (const PlannedPlane& plane : test.generator.plan)
            fallenGermans += test.career.pilots[static_cast<size_t>(plane.pilot)].alive == 0;
    }
    EXPECT_GT(fallenGermans, 0);
    EXPECT_GT(replaced, 0u) << "too many vacant draws call for replacements";
}

TEST(MissionPlanning, DrawsTheSeasonWhereItIsOpen) {
    MissionGenerator generator;
    const std::tuple<int32_t, int32_t, std::set<zel::String>> cases[] = {
        {2, 29, {"wi"}}, {3, 15, {"su", "wi"}}, {3, 16, {"su"}},  {9, 15, {"su"}},
        {9, 16, {"au"}}, {11, 30, {"au"}},      {12, 15, {"au"}}, {12, 16, {"au", "wi"}}};
    for (const auto& [month, day, seasons] : cases) {
        std::set<zel::String> drawn;
        for (int32_t i = 0; i < 40; ++i)
            drawn.insert(generator.seasonFor(1917, month, day));
        EXPECT_EQ(drawn, seasons) << month << '-' << day;
    }
}

// In the list the Camel is between the two SPADs, and the Germans come after the Dolphin. In
// November 1917 the French fly nothing but the SPAD XIII, in December 1916 the Germans nothing but
// the Albatros D. II.
TEST(MissionPlanning, GivesThePlayerATypeThatHeOwns) {
    TinyCareer french(France, Germany);
    setDate(french.career, 1917, 11, 1);
    for (const char* type : {"spad13", "sopcamel", "spad7"}) {
        EXPECT_EQ(french.playersType(), type);
        for (size_t i = 1; i < french.generator.plan.size(); ++i)
            EXPECT_TRUE(french.generator.plan[i].type == "spad13" ||
                        !isAllied(french.generator.plan[i].nation))
                << "the others own everything";
        zel::Registry::set(type, "0");
    }
    for (const Aircraft& aircraft : AircraftTable::rows())
        if (aircraft.isAllied())
            zel::Registry::set(aircraft.identifier, "0");
    EXPECT_EQ(french.playersType(), "spad13") << "with none found the drawn type is kept";

    TinyCareer german(Germany, France);
    setDate(german.career, 1916, 12, 1);
    zel::Registry::set("albatrosd2", "0");
    EXPECT_EQ(german.playersType(), "halberstadtd2");
    zel::Registry::set("halberstadtd2", "0");
    zel::Registry::set("fokkere3", "0");
    EXPECT_EQ(german.playersType(), "albatrosd2")
        << "the Dolphin comes first on the way down: a type of the other side";
}

TEST(MissionPlanning, GivesADeadPlayerASuccessor) {
    TinyCareer test(France, Germany);
    test.career.player().alive = 0;
    test.generator.planMission(true);
    EXPECT_EQ(test.generator.plan.at(0).pilot, 12) << "a new man";
    EXPECT_EQ(test.career.playerPilot, 12);
    EXPECT_EQ(test.career.squadrons[0].slots[0], 12);
}

TEST(MissionPlanning, LogsThatASideHasNoSquadron) {
    const struct {
        int32_t nation, enemy; // 300 belongs to nobody
        bool withPlayer;
        const char* missing;
    } cases[] = {{France, England, true, "German"},
                 {France, England, false, "German"},
                 {Germany, 300, true, "Allied"}};
    for (const auto& [nation, enemy, withPlayer, missing] : cases) {
        TinyCareer test(nation, enemy);
        test.expectNoPlan(withPlayer);
        EXPECT_TRUE(test.lines.holds(std::string("No ") + missing + " squadron for a mission"));
    }
}

TEST(MissionPlanning, MakesDoWithTinySquadrons) {
    for (const size_t pilots : {1u, 2u, 3u}) {
        TinyCareer test(England, Germany, pilots);
        test.generator.planMission(true);
        EXPECT_GE(test.generator.plan.size(), pilots == 1 ? 2u : 4u);
        EXPECT_LE(test.generator.plan.size(), 2 * pilots);
        EXPECT_EQ(test.generator.plan.front().pilot, 0);
    }
    // Without him there is nobody left on his side: he is dropped, and the log says so.
    TinyCareer test(England, Germany, 1);
    test.generator.planMission(false);
    ASSERT_EQ(test.generator.plan.size(), 1u);
    EXPECT_EQ(test.generator.plan.front().pilot, 1);
    EXPECT_EQ(test.lines.linesWith("!! "), 1) << test.lines.text();
}

// He is in a squadron but in none of its slots: no plan can hold him.
TEST(MissionPlanning, GivesUpOnAPlayerWhoCannotBeDrawn) {
    TinyCareer test(England, Germany);
    test.career.squadrons[0].slots[0] = test.career.squadrons[0].slots[1];
    test.expectNoPlan(true);
}

// An American who flies with the French belongs to their group.
TEST(MissionPlanning, GroupsBySideAndNotByNation) {
    TinyCareer test(France, Germany);
    for (size_t i = 1; i < 6; i += 2)
        test.career.pilots[i].nation = Usa;
    for (int32_t i = 0; i < 60; ++i) {
        test.generator.planMission(i % 2 == 0);
        checkPlan(test, i % 2 == 0);
    }
}

} // namespace
