#include "app/war/MissionSimulator.h"

#include <gtest/gtest.h>

#include "app/war/SquadronSimulator.h"
#include "engine/core/Clock.h"
#include "tests/support/HandMade.h"
#include "tests/support/Printers.h"
#include "tests/support/SmallCareer.h"

namespace {

constexpr uint32_t BlockSize = 624; // values that a generator makes at a time

/// One fight by the rule as it is worded, from a generator of its own, whose draws it counts. All
/// figures are 32-bit floats.
class FightByTheRule {
public:
    FightByTheRule(uint32_t seed, const std::vector<PlannedPlane>& plan) : generator(seed) {
        for (const PlannedPlane& plane : plan)
            pilots.push_back({plane.nation, plane.skill, plane.shotdowns, plane.missions, {}});
    }

    struct Record {
        int32_t nation, skill, shotdowns, missions;
        std::vector<int32_t> kills;
        float damage = 0, injury = 0;
        bool finished = false, dead = false;
        int32_t shotdownBy = -1;
    };

    bool step() {
        const size_t a = size_t(random(0, 15));
        const size_t t = size_t(random(0, 15));
        if (a >= pilots.size() || t >= pilots.size())
            return false;
        Record& attacker = pilots[a];
        Record& target = pilots[t];
        if (attacker.dead || attacker.finished || target.dead || target.finished)
            return false;
        if ((attacker.nation < 200 && target.nation < 200) ||
            (attacker.nation >= 200 && target.nation >= 200))
            return false;
        float v = attack(attacker);
        const float e = defence(target);
        v = v - randomFloat(0.0F, e);
        v = v - randomFloat(0.0F, e);
        if (target.skill > random(0, 13))
            v = v - randomFloat(0.0F, e);
        if (v < 0)
            v = 0;
        for (int32_t i = 0; i < 7; ++i)
            if (random(0, 15) > attacker.skill)
                v = randomFloat(0.0F, v);
        const float up = randomFloat(0.0F, 0.305F);
        const float down = randomFloat(0.0F, 0.305F);
        const float w = v + up - down;
        if (w < 0)
            return false;
        const float h = randomFloat(0.0F, w);
        float injury = 0;
        if (h > 0.1F)
            injury = float(random(0, 4)) * 0.25F;
        target.damage = target.damage + h;
        target.injury = target.injury + injury;
        if (target.damage >= 1.0F) {
            random(0, 12);
            target.finished = true;
            target.dead = target.injury >= 1.0F;
            attacker.kills.push_back(int32_t(t));
            target.shotdownBy = int32_t(a);
        }
        int32_t left[2] = {0, 0};
        for (const Record& pilot : pilots)
            if (!pilot.dead && !pilot.finished)
                ++left[pilot.nation < 200];
        return left[0] == 0 || left[1] == 0;
    }

    std::vector<Record> pilots;
    uint32_t draws = 0;

private:
    float attack(const Record& attacker) {
        const int32_t level =
            SquadronSimulator::pilotLevel(attacker.skill, attacker.shotdowns, attacker.missions);
        float a = float(level) * 0.06F;
        if (level > 2)
            a = a + float(attacker.skill) * 0.06F;
        const float first = randomFloat(0.0F, a);
        const float second = randomFloat(0.0F, a);
        return first + second;
    }

    static float defence(const Record& target) {
        const int32_t level =
            SquadronSimulator::pilotLevel(target.skill, target.shotdowns, target.missions);
        float e = float(level) * 0.092F + float(target.skill) * 0.01F;
        if (target.shotdowns == 0)
            e = e / 1.2F / 1.05F / 1.05F / 1.05F / 1.05F;
        if (target.shotdowns == 1)
            e = e / 1.05F / 1.05F / 1.05F / 1.05F;
        if (target.shotdowns == 2)
            e = e / 1.05F / 1.05F / 1.05F;
        if (target.shotdowns == 3)
            e = e / 1.05F / 1.05F;
        if (target.shotdowns == 4)
            e = e / 1.05F;
        for (int32_t i = 0; i <= 4; ++i)
            if (i > target.missions)
                e = e / 1.05F;
        return e;
    }

    int32_t random(int32_t a, int32_t b) {
        ++draws;
        return generator.getInt(a, b);
    }
    float randomFloat(float a, float b) {
        ++draws;
        return a + (b - a) * (float(generator.next()) * 2.3283064365386963e-10F);
    }

    zel::Random generator;
};

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
struct PinnedSimulator {
    explicit PinnedSimulator(uint32_t seed) {
        zel::setTickSource([] { return uint32_t(0); });
        zel::Random::setStaticNumber(seed);
        simulator = std::make_unique<MissionSimulator>();
        zel::setTickSource(nullptr);
        simulator->loadPlan();
    }
    std::unique_ptr<MissionSimulator> simulator;
};

/// Runs both in step. False, with the fault shown, where they part.
void expectSameFight(uint32_t seed, int32_t steps) {
    const MissionGenerator& generator = *MissionGenerator::instance();
    FightByTheRule expected(seed, generator.plan);
    const PinnedSimulator pinned(seed);
    MissionSimulator& simulator = *pinned.simulator;
    uint64_t made = 0;
    for (int32_t i = 0; i < steps; ++i) {
        const uint64_t before = zel::Random::valuesMade();
        const bool over = simulator.fightStep();
        made += zel::Random::valuesMade() - before;
        ASSERT_EQ(over, expected.step()) << "step " << i << " of seed " << seed;
        for (size_t p = 0; p < expected.pilots.size(); ++p) {
            const FightByTheRule::Record& rule = expected.pilots[p];
            const PilotReport& record = simulator.records()[p];
            ASSERT_EQ(record.damage, rule.damage) << "step " << i << " of seed " << seed;
            ASSERT_EQ(record.injury, rule.injury) << "step " << i << " of seed " << seed;
            ASSERT_EQ(record.finished, rule.finished);
            ASSERT_EQ(record.shotDown, rule.finished);
            ASSERT_EQ(record.dead, rule.dead);
            ASSERT_EQ(record.killCount, rule.dead);
            ASSERT_EQ(record.shotdownBy, rule.shotdownBy);
            ASSERT_EQ(record.kills, rule.kills);
        }
    }
    ASSERT_EQ(made, (expected.draws + BlockSize - 1) / BlockSize * BlockSize);
}

// Past the end of the fight, too: the steps go on drawing in the same way.
TEST(MissionSimulator, FightsByTheRule) {
    MissionGenerator generator;
    const std::pair<int32_t, int32_t> sizes[] = {{1, 1}, {2, 3}, {4, 4}, {8, 8}, {14, 6}, {6, 14}};
    for (const auto& [allies, germans] : sizes)
        for (uint32_t seed = 1; seed <= 6; ++seed) {
            generator.plan = mixedPlan(allies, germans, seed * 100);
            expectSameFight(seed, 6000);
            if (HasFatalFailure())
                return;
        }
}

TEST(MissionSimulator, TakesItsRecordsFromThePlan) {
    MissionGenerator generator;
    generator.plan = {plannedPlane(3, "Luc Noir", France, {7, 2, 5}),
                      plannedPlane(8, "Otto Klein", Germany, {1, 0, 4})};
    MissionSimulator simulator;
    simulator.loadPlan();
    ASSERT_EQ(simulator.records().size(), 2u);
    const PilotReport& record = simulator.records()[0];
    EXPECT_EQ(record.name, "Luc Noir");
    EXPECT_EQ(record.plannedName, "Luc Noir");
    EXPECT_EQ(record.type, "spad7");
    EXPECT_EQ(record.country, France);
    EXPECT_EQ(record.pilot, 3);
    EXPECT_EQ(record.skill, 7);
    EXPECT_EQ(record.shotdowns, 2);
    EXPECT_EQ(record.missions, 5);
    EXPECT_EQ(record.spare, 1000);
    EXPECT_EQ(record.shotdownBy, -1);
    simulator.reset();
    EXPECT_TRUE(simulator.records().empty());
    EXPECT_TRUE(simulator.fightStep()) << "nobody to fight";
}

// Every step of theirs takes the two draws that pick a pair, and finds no enemies.
TEST(MissionSimulator, RunsToItsLimitWithOneSide) {
    MissionGenerator generator;
    generator.plan = mixedPlan(6, 0, 1);
    const PinnedSimulator pinned(1);
    const uint64_t before = zel::Random::valuesMade();
    pinned.simulator->fight(5 * BlockSize / 2);
    EXPECT_EQ(zel::Random::valuesMade() - before, 5 * BlockSize);
    pinned.simulator->fight(1);
    EXPECT_EQ(zel::Random::valuesMade() - before, 6 * BlockSize);
}

TEST(MissionSimulator, LeavesPlanesBeyondTheSixteenthUnharmed) {
    MissionGenerator generator;
    generator.plan = mixedPlan(12, 12, 3);
    const PinnedSimulator pinned(9);
    pinned.simulator->fight(200000);
    int32_t down = 0;
    for (size_t i = 0; i < 24; ++i) {
        const PilotReport& record = pinned.simulator->records()[i];
        down += record.shotDown;
        if (i >= 16) {
            EXPECT_EQ(record.damage, 0) << i;
            EXPECT_TRUE(record.kills.empty()) << i;
        }
    }
    EXPECT_GT(down, 3) << "the others fought";
}

TEST(MissionSimulator, CarriesTheFightIntoTheCareer) {
    const SmallWorld world;
    Database career;
    const int32_t allied = emptySquadron(career, England);
    const int32_t german = emptySquadron(career, Germany);
    for (int32_t i = 0; i < 8; ++i)
        addPilot(career, i < 4 ? allied : german, "P", {10, 65534, 65535});
    addPilot(career, allied, "On the ground", {10, 1, 1});
    MissionGenerator generator;
    for (int32_t i = 0; i < 8; ++i)
        generator.plan.push_back(
            plannedPlane(i, "P", i < 4 ? England : Germany, {10, i < 6 ? 9 : 0, 9}));
    generator.plan.push_back(plannedPlane(99, "Nobody's", Germany));
    MissionSimulator simulator;
    simulator.loadPlan();
    for (size_t i = 0; i < 8; ++i)
        career.pilots[i].missions = static_cast<uint16_t>(i == 0 ? 65535 : 10);
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
}

} // namespace
