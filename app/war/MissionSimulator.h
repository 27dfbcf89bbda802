#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "app/career/PilotReport.h"
#include "app/war/FightDraws.h"
#include "engine/core/Random.h"

class Database;
struct PlannedPlane;

/// Fights a planned mission in the abstract: random pairs of opposing pilots meet over a number of
/// steps, and the outcome goes into the career. Its figures decide who becomes an ace.
///
/// For each mission: MissionGenerator::planMission(false), reset, loadPlan, fight, applyResult.
class MissionSimulator {
public:
    MissionSimulator() = default;
    virtual ~MissionSimulator() = default;

    /// Removes all records; the generator goes on.
    void reset();
    /// Appends one record for each plane of a plan, in the plan's order; without an argument, of
    /// the current generator's plan if there is a generator.
    void loadPlan();
    void loadPlan(const std::vector<PlannedPlane>& plan);
    /// One meeting, or none when the two draws hit no pair that can meet. True when the fight is
    /// over: one side has nobody left, or there are no records at all.
    bool fightStep();
    /// Runs at most that many steps and stops when the fight is over.
    void fight(int32_t steps);
    /// Applies victories, missions and deaths to the career; without an argument, to the running
    /// program's career if there is one.
    void applyResult();
    void applyResult(Database& career) const;

    const std::vector<PilotReport>& records() const { return pilots; }

private:
    /// A record's contribution to every meeting; constant during the fight.
    struct FightFigures {
        float attack = 0;  // half of what a unit of 2^-32 counts in each of the two attack draws
        float defence = 0; // likewise in each defence draw
        int32_t skill = 0;
        std::array<int8_t, 16> aimLimits{}; // the skill, to compare sixteen places with
    };

    bool takeSteps(int32_t steps);
    inline bool meet(const DrawWindow& window, DrawCursor& cursor);
    bool takeOut(int32_t attacker, int32_t target);

    std::vector<PilotReport> pilots;
    std::array<FightFigures, FightPlaces> figures; // only the first sixteen records can meet
    std::array<uint16_t, FightPlaces> opponents{}; // bit t of place a: a may attack t
    int32_t front = 0;      // places of the first one's side, if they come before all others; or 0
    int32_t alliedLeft = 0; // records still in the fight, of all places
    int32_t centralLeft = 0;
    zel::Random random;
};
