#include <algorithm>
#include <cstdlib>
#include <set>

#include <gtest/gtest.h>

#include "app/career/Aircraft.h"
#include "app/mission/MissionGenerator.h"
#include "engine/core/Registry.h"
#include "tests/support/Draws.h"
#include "tests/support/HandMade.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

namespace {

/// A career of four hundred squadrons, some of them with a history, and a generator.
struct PlannedCareer {
    explicit PlannedCareer(int32_t service = ServiceGerman) {
        world.addHistory();
        career.createCareer(service);
        zel::Random::setStaticNumber(5);
        generator.reseed(4711);
    }
    SmallWorld world;
    LogCapture lines{zel::LogError};
    Database career;
    MissionGenerator generator;
};

/// A career of these squadrons alone; the player is the first pilot of squadron 0.
struct TinyCareer {
    TinyCareer(int32_t nation, int32_t enemy, size_t pilots = 6) {
        squadronOf(career, nation, std::vector<int32_t>(pilots, 0));
        squadronOf(career, enemy, std::vector<int32_t>(pilots, 0));
        generator.reseed(815);
    }
    const zel::String& playersType() {
        generator.planMission(true);
        return generator.plan.front().type;
    }
    SmallWorld world;
    LogCapture lines{zel::LogError};
    Database career;
    MissionGenerator generator;
};

/// What must hold of every plan. Returns the sizes of its groups, German and Allied.
std::pair<int32_t, int32_t> checkPlan(const PlannedCareer& test, bool withPlayer) {
    const std::vector<PlannedPlane>& plan = test.generator.plan;
    std::set<int32_t> pilots;
    std::set<int32_t> squadrons[2];
    int32_t sizes[2] = {0, 0};
    int32_t changes = 0;
    int32_t players = 0;
    for (size_t i = 0; i < plan.size(); ++i) {
        const PlannedPlane& plane = plan[i];
        const Pilot& pilot = test.career.pilots[static_cast<size_t>(plane.pilot)];
        const bool allied = plane.nation < 200;
        pilots.insert(plane.pilot);
        squadrons[allied].insert(plane.squadron);
        ++sizes[allied];
        changes += i > 0 && allied != (plan[i - 1].nation < 200);
        players += plane.pilot == test.career.playerPilot;
        EXPECT_EQ(plane.name, zel::arrayText(pilot.name));
        EXPECT_EQ(plane.nation, pilot.nation);
        EXPECT_EQ(plane.skill, pilot.skill);
        EXPECT_EQ(plane.shotdowns, pilot.shotdowns);
        EXPECT_EQ(plane.missions, pilot.missions);
        EXPECT_EQ(plane.squadron, pilot.squadron);
        EXPECT_EQ(plane.pilotFile, pilot.pilotFile);
        EXPECT_EQ(isAlliedPlane(planeIndex(plane.type)), allied) << plane.type.c_str();
        EXPECT_TRUE(!allied || pilot.alive != 0) << "the Allies fly with the living alone";
    }
    EXPECT_EQ(pilots.size(), plan.size()) << "nobody flies twice";
    EXPECT_EQ(changes, 1) << "grouped by side";
    EXPECT_EQ(squadrons[0].size(), 1u);
    EXPECT_EQ(squadrons[1].size(), 1u);
    EXPECT_EQ(players, withPlayer ? 1 : 0);
    EXPECT_TRUE(!withPlayer || plan.front().pilot == test.career.playerPilot);
    return {sizes[0], sizes[1]};
}

using Sizes = std::set<std::pair<int32_t, int32_t>>;

Sizes sizesOf(int32_t year) {
    if (year <= 1916)
        return {{1, 1}, {2, 2}, {2, 3}, {3, 2}, {3, 3}};
    Sizes sizes = {{2, 2}, {2, 3}, {3, 2}, {3, 3}, {3, 4}, {4, 3}, {4, 4}};
    if (year == 1917)
        sizes.insert({1, 1});
    return sizes;
}

TEST(MissionPlanning, KeepsItsRulesInEveryYear) {
    for (const int32_t service : {ServiceFrench, ServiceEnglish, ServiceGerman}) {
        PlannedCareer test(service);
        for (int32_t year = 1915; year <= 1919; ++year) {
            setDate(test.career, year, 6, 1);
            Sizes seen;
            for (int32_t i = 0; i < 300 && !testing::Test::HasFailure(); ++i) {
                const bool withPlayer = i % 2 == 0;
                test.generator.planMission(withPlayer);
                seen.insert(checkPlan(test, withPlayer));
            }
            EXPECT_EQ(seen, sizesOf(year)) << year;
            EXPECT_EQ(test.generator.seasonPrefix, "su");
        }
        EXPECT_EQ(test.lines.text().find("!! "), std::string::npos) << test.lines.text();
    }
}

/// A plan by the rules as they are worded, with draws of its own; everybody lives and owns every
/// type.
class PlanByTheRule {
public:
    PlanByTheRule(const Database& career, uint32_t seed) : career(career), draws(seed) {}

    struct Plane {
        int32_t pilot;
        zel::String type;
        bool operator==(const Plane& other) const {
            return pilot == other.pilot && type == other.type;
        }
    };

    std::vector<Plane> plan(bool withPlayer) {
        bool holdsPlayer = false;
        do {
            select(withPlayer);
            holdsPlayer = false;
            for (const Plane& plane : german)
                holdsPlayer = holdsPlayer || plane.pilot == career.playerPilot;
            for (const Plane& plane : allied)
                holdsPlayer = holdsPlayer || plane.pilot == career.playerPilot;
        } while (holdsPlayer != withPlayer);
        const bool alliedFirst = withPlayer && nationOf(playersSquadron()) < 200;
        std::vector<Plane> planes = alliedFirst ? allied : german;
        if (withPlayer)
            std::stable_partition(planes.begin(), planes.end(), [&](const Plane& plane) {
                return plane.pilot == career.playerPilot;
            });
        const std::vector<Plane>& others = alliedFirst ? german : allied;
        planes.insert(planes.end(), others.begin(), others.end());
        return planes;
    }
    const zel::Random& state() const { return draws; }

private:
    int32_t playersSquadron() const {
        return career.pilots[static_cast<size_t>(career.playerPilot)].squadron;
    }
    int32_t nationOf(int32_t squadron) const {
        return career.squadrons[static_cast<size_t>(squadron)].nation;
    }
    bool suits(int32_t squadron, const zel::String& type, bool isPlayers) const {
        const int32_t file = career.squadrons[static_cast<size_t>(squadron)].squadronFile;
        if (file < 0)
            return isPlayers;
        return career.hasAircraft(
            zel::String(zel::arrayText(career.squadronFiles[static_cast<size_t>(file)].key)), type);
    }

    void select(bool withPlayer) {
        setPlaneRandom(&draws);
        const int32_t last = int32_t(career.squadrons.size()) - 1;
        const int32_t nation = nationOf(playersSquadron());
        int32_t g = 0;
        int32_t a = 0;
        zel::String typeG;
        zel::String typeA;
        for (int32_t i = 0; i < 100; ++i) {
            typeG = planeForSide(false, career.year, career.month, career.day);
            do
                g = withPlayer && nation >= 500 ? playersSquadron() : draws.getInt(0, last);
            while (nationOf(g) <= 499);
            if (!withPlayer || suits(g, typeG, nation >= 500))
                break;
        }
        for (int32_t i = 0; i < 100; ++i) {
            do {
                a = withPlayer && nation < 200 ? playersSquadron() : draws.getInt(0, last);
                typeA = chooseNationPlane(nationOf(a), career.year, career.month, career.day);
            } while (nationOf(a) > 199);
            if (!withPlayer || suits(a, typeA, nation < 200))
                break;
        }
        const auto [germans, allies] = drawSizes();
        german = fill(g, germans, typeG);
        allied = fill(a, allies, typeA);
    }

    std::pair<int32_t, int32_t> drawSizes() {
        for (;;) {
            int32_t from = 2;
            int32_t to = 4;
            if (career.year <= 1916) {
                from = 1;
                to = draws.getInt(0, 2) == 2 ? 3 : 2;
            } else if (career.year == 1917 && draws.getInt(0, 11) == 0) {
                return {1, 1};
            } else if (career.year == 1918 && draws.getInt(0, 1) != 0) {
                from = 3;
            }
            const int32_t g = draws.getInt(from, to);
            const int32_t a = draws.getInt(from, to);
            const bool close = std::abs(g - a) <= 1;
            if (career.year <= 1916 ? (g == 1 && a == 1) || (g != 1 && a != 1 && close) : close)
                return {g, a};
        }
    }

    std::vector<Plane> fill(int32_t squadron, int32_t count, const zel::String& type) {
        const Squadron& home = career.squadrons[static_cast<size_t>(squadron)];
        std::vector<Plane> planes;
        while (int32_t(planes.size()) < count) {
            const Plane plane{home.slots[draws.getInt(0, home.pilotCount - 1)], type};
            if (std::find(planes.begin(), planes.end(), plane) == planes.end())
                planes.push_back(plane);
        }
        return planes;
    }

    const Database& career;
    zel::Random draws;
    std::vector<Plane> german;
    std::vector<Plane> allied;
};

TEST(MissionPlanning, DrawsInTheOrderOfItsRules) {
    for (const int32_t service : {ServiceFrench, ServiceEnglish, ServiceGerman}) {
        PlannedCareer test(service);
        for (uint32_t i = 0; i < 240 && !HasFailure(); ++i) {
            setDate(test.career, 1915 + int32_t(i % 5), int32_t(i / 5) % 12 + 1, 20);
            const bool withPlayer = i % 3 != 0;
            PlanByTheRule rule(test.career, i + 1);
            const std::vector<PlanByTheRule::Plane> expected = rule.plan(withPlayer);
            zel::Random after = rule.state();
            if (test.career.month == 12)
                after.next(); // the season's
            test.generator.reseed(i + 1);
            test.generator.planMission(withPlayer);
            std::vector<PlanByTheRule::Plane> planned;
            for (const PlannedPlane& plane : test.generator.plan)
                planned.push_back({plane.pilot, plane.type});
            EXPECT_TRUE(planned == expected) << "plan " << i << " of service " << service;
            EXPECT_EQ(drawsBetween(after, *test.generator.random, 10), 0) << "plan " << i;
        }
    }
}

// The Allies draw again for a vacant slot, the Germans fly with men who are gone: as is meant.
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
    const struct {
        int32_t month, day;
        const char* season; // first draw 0, or no draw
        const char* other;  // first draw above 0
    } cases[] = {
        {1, 1, "wi", ""},  {2, 29, "wi", ""},  {3, 1, "wi", "su"},   {3, 15, "wi", "su"},
        {3, 16, "su", ""}, {4, 1, "su", ""},   {8, 31, "su", ""},    {9, 1, "su", ""},
        {9, 15, "su", ""}, {9, 16, "au", ""},  {10, 1, "au", ""},    {11, 30, "au", ""},
        {12, 1, "au", ""}, {12, 15, "au", ""}, {12, 16, "wi", "au"}, {12, 31, "wi", "au"},
    };
    MissionGenerator generator;
    for (const auto& [month, day, season, other] : cases)
        for (uint32_t seed = 1; seed <= 12; ++seed) {
            generator.reseed(seed);
            zel::Random draws(seed);
            const bool isOpen = *other != 0;
            const bool first = !isOpen || draws.getInt(0, month == 3 ? 1 : 2) == 0;
            EXPECT_EQ(generator.seasonFor(1917, month, day), first ? season : other)
                << month << '-' << day;
            EXPECT_EQ(drawsBetween(draws, *generator.random), 0) << month << '-' << day;
        }
}

// In the list the Camel stands between the two SPADs, and the Germans behind the Dolphin.
TEST(MissionPlanning, GivesThePlayerATypeThatHeOwns) {
    TinyCareer french(France, Germany);
    setDate(french.career, 1917, 11, 1); // when the French fly nothing but the SPAD XIII
    EXPECT_EQ(french.playersType(), "spad13");
    zel::Registry::set("spad13", "0");
    EXPECT_EQ(french.playersType(), "sopcamel");
    zel::Registry::set("sopcamel", "0");
    EXPECT_EQ(french.playersType(), "spad7");
    for (size_t i = 1; i < french.generator.plan.size(); ++i)
        EXPECT_NE(french.generator.plan[i].type, "spad7") << "the others own everything";
    for (int32_t i = 0; i < AlliedPlaneCount; ++i)
        zel::Registry::set(planeIdentifiers()[static_cast<size_t>(i)], "0");
    EXPECT_EQ(french.playersType(), "spad13") << "with none found the drawn type stands";
}

TEST(MissionPlanning, NeverGivesThePlayerATypeOfTheOtherSide) {
    TinyCareer german(Germany, France);
    setDate(german.career, 1916, 12, 1); // when the Germans fly nothing but the Albatros D. II
    zel::Registry::set("albatrosd2", "0");
    EXPECT_EQ(german.playersType(), "halberstadtd2");
    zel::Registry::set("halberstadtd2", "0");
    zel::Registry::set("fokkere3", "0");
    EXPECT_EQ(german.playersType(), "albatrosd2") << "the Dolphin comes first on the way down";
}

TEST(MissionPlanning, GivesADeadPlayerASuccessor) {
    TinyCareer test(France, Germany);
    setDate(test.career, 1917, 11, 1);
    test.career.player().alive = 0;
    test.generator.planMission(true);
    ASSERT_FALSE(test.generator.plan.empty());
    EXPECT_EQ(test.generator.plan.front().pilot, test.career.playerPilot);
    EXPECT_EQ(test.career.playerPilot, 12) << "a new man";
    EXPECT_EQ(test.career.player().squadron, 0);
    EXPECT_EQ(test.career.squadrons[0].slots[0], 12);
}

TEST(MissionPlanning, LogsThatASideHasNoSquadron) {
    for (const bool withPlayer : {true, false}) {
        TinyCareer lone(France, England);
        setDate(lone.career, 1917, 11, 1);
        lone.generator.planMission(withPlayer);
        EXPECT_TRUE(lone.generator.plan.empty());
        EXPECT_EQ(lone.lines.linesWith("!! "), 1) << lone.lines.text();
        EXPECT_TRUE(lone.lines.holds("No German squadron for a mission"));
    }
    TinyCareer nobody(Germany, 300); // a code that belongs to nobody
    setDate(nobody.career, 1917, 11, 1);
    nobody.generator.planMission(true);
    EXPECT_TRUE(nobody.generator.plan.empty());
    EXPECT_TRUE(nobody.lines.holds("No Allied squadron for a mission"));
}

TEST(MissionPlanning, MakesDoWithTinySquadrons) {
    for (const size_t pilots : {1u, 2u, 3u}) {
        TinyCareer test(England, Germany, pilots);
        setDate(test.career, 1918, 3, 1);
        test.generator.planMission(true);
        EXPECT_GE(test.generator.plan.size(), pilots == 1 ? 2u : 4u);
        EXPECT_LE(test.generator.plan.size(), 2 * pilots);
        EXPECT_EQ(test.generator.plan.front().pilot, 0);
    }
    // Without him there is nobody left on his side: he is dropped, and the plan is told of.
    TinyCareer test(England, Germany, 1);
    setDate(test.career, 1918, 3, 1);
    test.generator.planMission(false);
    ASSERT_EQ(test.generator.plan.size(), 1u);
    EXPECT_EQ(test.generator.plan.front().pilot, 1);
    EXPECT_EQ(test.lines.linesWith("!! "), 1) << test.lines.text();
}

// He stands in a squadron without standing in its slots: no plan can hold him.
TEST(MissionPlanning, GivesUpOnAPlayerWhoCannotBeDrawn) {
    TinyCareer test(England, Germany);
    setDate(test.career, 1918, 3, 1);
    test.career.squadrons[0].slots[0] = test.career.squadrons[0].slots[1];
    test.generator.planMission(true);
    EXPECT_TRUE(test.generator.plan.empty());
    EXPECT_EQ(test.lines.linesWith("!! "), 1) << test.lines.text();
}

// An American who flies with the French is of their group.
TEST(MissionPlanning, GroupsBySideAndNotByNation) {
    TinyCareer test(France, Germany);
    setDate(test.career, 1918, 3, 1);
    for (size_t i = 1; i < 6; i += 2)
        test.career.pilots[i].nation = Usa;
    for (int32_t i = 0; i < 60; ++i) {
        test.generator.planMission(i % 2 == 0);
        int32_t changes = 0;
        for (size_t p = 1; p < test.generator.plan.size(); ++p)
            changes += isAllied(test.generator.plan[p].nation) !=
                       isAllied(test.generator.plan[p - 1].nation);
        EXPECT_EQ(changes, 1);
    }
}

} // namespace
