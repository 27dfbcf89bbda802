#include "app/war/MissionSimulator.h"

#include <cstdio>
#include <cstring>

#include <gtest/gtest.h>

#include "engine/core/Clock.h"
#include "tests/support/HandMade.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

namespace {

/// A plan of that many Allies and Germans of all skills, grouped by side.
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

std::string hexOf(float value) {
    uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    char text[9];
    std::snprintf(text, sizeof text, "%08x", bits);
    return text;
}

/// The record that was hit, as tests/reference/fights.py writes it.
std::string lineOf(int32_t step, bool isOver, size_t index,
                   const std::vector<PilotReport>& records) {
    const PilotReport& hit = records[index];
    std::string kills;
    if (hit.shotdownBy >= 0)
        for (const int32_t kill : records[size_t(hit.shotdownBy)].kills)
            kills += (kills.empty() ? "" : ",") + std::to_string(kill);
    EXPECT_EQ(hit.finished, hit.shotDown);
    EXPECT_EQ(hit.killCount, hit.dead);
    return std::to_string(step) + (isOver ? " 1 " : " 0 ") + std::to_string(index) + " " +
           hexOf(hit.damage) + " " + hexOf(hit.injury) + " " + std::to_string(hit.shotDown) + " " +
           std::to_string(hit.dead) + " " + std::to_string(hit.shotdownBy) + " " + kills + "\n";
}

/// The course of a fight: a line for each step that changes a record.
std::string courseOf(MissionSimulator& simulator, int32_t steps) {
    const std::vector<PilotReport>& records = simulator.records();
    std::vector<std::pair<float, float>> before(records.size());
    std::string course;
    for (int32_t step = 0; step < steps; ++step) {
        const bool isOver = simulator.fightStep();
        for (size_t i = 0; i < records.size(); ++i) {
            const std::pair now{records[i].damage, records[i].injury};
            if (now != before[i])
                course += lineOf(step, isOver, i, records);
            before[i] = now;
        }
    }
    return course;
}

// Goes past the end of the fight, too: the steps go on drawing as before, and the next fight takes
// the draws that follow. Planes beyond the sixteenth take no part.
TEST(MissionSimulator, FightsByTheRule) {
    MissionGenerator generator;
    std::string courses;
    for (const auto& [allies, germans] :
         {std::pair{1, 1}, {2, 3}, {4, 4}, {8, 8}, {14, 6}, {6, 14}})
        for (uint32_t seed = 1; seed <= 6; ++seed) {
            generator.plan = mixedPlan(allies, germans, seed * 100);
            const auto simulator = pinnedSimulator(seed);
            courses += courseOf(*simulator, 6000);
            simulator->reset();
            simulator->loadPlan(mixedPlan(germans, allies, seed * 100 + 1));
            courses += courseOf(*simulator, 300);
        }
    EXPECT_EQ(courses, referenceResult("fights"));
}

std::string outcomeOf(const MissionSimulator& simulator) {
    std::string outcome;
    for (const PilotReport& record : simulator.records()) {
        outcome +=
            hexOf(record.damage) + hexOf(record.injury) + std::to_string(record.shotdownBy) + " ";
    }
    return outcome;
}

// A fight passes over steps without a meeting in bulk, within blocks of draws and up to its limit.
// It also has to find the meetings of a plan that isn't grouped by side, and those of two planes,
// which may be more than a block apart.
TEST(MissionSimulator, FightsAsItsStepsDo) {
    MissionGenerator generator;
    for (uint32_t seed = 1; seed <= 60; ++seed) {
        const auto allies = static_cast<int32_t>(seed % 9);
        generator.plan = mixedPlan(allies, 8 - allies + static_cast<int32_t>(seed % 13), seed);
        if (seed % 5 == 0)
            std::reverse(generator.plan.begin() + 1, generator.plan.end());
        if (seed % 7 == 0)
            generator.plan = mixedPlan(1, 1, seed);
        const auto steps = static_cast<int32_t>(seed * seed);
        const auto whole = pinnedSimulator(seed);
        whole->fight(steps);
        whole->fight(700);
        const auto single = pinnedSimulator(seed);
        for (int32_t i = 0; i < steps; ++i)
            if (single->fightStep())
                break;
        for (int32_t i = 0; i < 700; ++i)
            if (single->fightStep())
                break;
        EXPECT_EQ(outcomeOf(*whole), outcomeOf(*single)) << seed;
    }
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
