#include "app/war/MissionSimulator.h"

#include <gtest/gtest.h>

#include "engine/core/Clock.h"
#include "tests/support/HandMade.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

namespace {

constexpr uint32_t BlockSize = 624; // values that a generator makes at a time

/// A plan of so many Allies and Germans of all skills, grouped by side.
std::vector<PlannedPlane> mixedPlan(int32_t allies, int32_t germans, uint32_t seed) {
    zel::Random draws(seed);
    std::vector<PlannedPlane> plan;
    for (int32_t i = 0; i < allies + germans; ++i) {
        const int32_t nation = i >= allies ? Germany : i % 3 == 2 ? Usa : England;
        const int32_t skill = draws.getInt(0, 16);
        const int32_t shotdowns = draws.getInt(0, draws.getInt(0, 12));
        plan.push_back(plannedPlane(i, "P", nation, {skill, shotdowns, draws.getInt(0, 12)}));
    }
    return plan;
}

/// A simulator whose generator starts from that seed, with the current generator's plan.
std::unique_ptr<MissionSimulator> pinnedSimulator(uint32_t seed) {
    zel::setTickSource([] { return uint32_t(0); });
    zel::Random::setStaticNumber(seed);
    auto simulator = std::make_unique<MissionSimulator>();
    zel::setTickSource(nullptr);
    simulator->loadPlan();
    return simulator;
}

template <typename Value> void append(std::string& text, Value value) {
    text.append(reinterpret_cast<const char*>(&value), sizeof value);
}

/// The course of a fight: after each step whether it is over and what every record has got, and
/// behind all of them the values that the generator made.
std::string courseOf(uint32_t seed, int32_t steps) {
    const auto simulator = pinnedSimulator(seed);
    std::string course;
    const uint64_t before = zel::Random::valuesMade();
    for (int32_t i = 0; i < steps; ++i) {
        course += simulator->fightStep() ? '1' : '0';
        for (const PilotReport& record : simulator->records()) {
            append(course, record.damage);
            append(course, record.injury);
            course += std::to_string(record.shotDown + record.finished + record.killCount) +
                      std::to_string(record.dead) + std::to_string(record.shotdownBy);
            for (const int32_t kill : record.kills)
                course += "," + std::to_string(kill);
        }
    }
    return course + std::to_string(zel::Random::valuesMade() - before);
}

// Past the end of the fight, too: the steps go on drawing in the same way. Planes beyond the
// sixteenth take no part. The hashes come from a second reckoning of the rule, in 32-bit floats,
// written apart from this program.
TEST(MissionSimulator, FightsByTheRule) {
    MissionGenerator generator;
    const struct {
        int32_t allies, germans;
        uint64_t hash;
    } cases[] = {
        {1, 1, 0x72334492C5D3C877U}, {2, 3, 0x441C1D14E43614A1U},  {4, 4, 0x2FB6FA45FA3120A2U},
        {8, 8, 0xC586265258D7B03EU}, {14, 6, 0xF191B4FFEC010A49U}, {6, 14, 0x2A4926E1BD5DA9F6U},
    };
    for (const auto& [allies, germans, hash] : cases) {
        std::string courses;
        for (uint32_t seed = 1; seed <= 6; ++seed) {
            generator.plan = mixedPlan(allies, germans, seed * 100);
            courses += courseOf(seed, 6000);
        }
        EXPECT_EQ(hashOf(courses), hash) << allies << " against " << germans;
    }
}

// Every step of theirs takes the two draws that pick a pair, and finds no enemies.
TEST(MissionSimulator, RunsToItsLimitWithOneSide) {
    MissionGenerator generator;
    generator.plan = mixedPlan(6, 0, 1);
    const auto simulator = pinnedSimulator(1);
    const uint64_t before = zel::Random::valuesMade();
    simulator->fight(5 * BlockSize / 2);
    EXPECT_EQ(zel::Random::valuesMade() - before, 5 * BlockSize);
    simulator->fight(1);
    EXPECT_EQ(zel::Random::valuesMade() - before, 6 * BlockSize);
}

TEST(MissionSimulator, CarriesTheFightIntoTheCareer) {
    const SmallWorld world;
    Database career;
    const int32_t allied = emptySquadron(career, England);
    const int32_t german = emptySquadron(career, Germany);
    MissionGenerator generator;
    for (int32_t i = 0; i < 8; ++i) {
        addPilot(career, i < 4 ? allied : german, "P", {10, 65534, i == 0 ? 65535 : 10});
        generator.plan.push_back(
            plannedPlane(i, "P", i < 4 ? England : Germany, {10, i < 6 ? 9 : 0, 9}));
    }
    addPilot(career, allied, "On the ground", {10, 1, 1});
    generator.plan.push_back(plannedPlane(99, "Nobody's", Germany));
    MissionSimulator simulator;
    simulator.loadPlan();
    const PilotReport& first = simulator.records().at(0);
    EXPECT_TRUE(first.name == "P" && first.plannedName == "P" && first.type == "spad7");
    EXPECT_EQ(first.spare, 1000);
    simulator.fight(200000);
    simulator.applyResult();
    size_t kills = 0;
    for (size_t i = 0; i < 8; ++i) {
        const PilotReport& record = simulator.records()[i];
        kills += record.kills.size();
        EXPECT_EQ(career.pilots[i].alive, record.dead == 0);
        EXPECT_EQ(career.pilots[i].missions, i == 0 ? 65535 : 11);
        EXPECT_EQ(career.pilots[i].shotdowns, 65534 + (record.kills.empty() ? 0 : 1));
    }
    EXPECT_GE(kills, 4u) << "one side is gone";
    EXPECT_EQ(career.pilots[8].missions, 1) << "who isn't in the plan takes no part";
    simulator.reset();
    EXPECT_TRUE(simulator.records().empty());
    EXPECT_TRUE(simulator.fightStep()) << "nobody to fight";
}

} // namespace
