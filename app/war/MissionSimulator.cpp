#include "app/war/MissionSimulator.h"

#include <algorithm>
#include <cmath>

#include "app/career/Database.h"
#include "app/career/PilotLevel.h"
#include "app/mission/MissionGenerator.h"
#include "app/war/FightRules.h"

namespace {

constexpr int32_t SpareOfSimulator = 1000;
// The unit of a draw, and half of it. Scaling by a power of two is exact.
constexpr float WholeDraw = 0x1p-32F;
constexpr float HalfDraw = 0x1p-33F;

float attackOf(const PilotReport& pilot, int32_t level) {
    float attack = static_cast<float>(level) * fight::AttackOfLevel;
    if (level >= fight::LevelThatUsesSkill)
        attack += static_cast<float>(pilot.skill) * fight::AttackOfSkill;
    return attack;
}

/// Few victories and few missions make a pilot easier to hit.
float defenceOf(const PilotReport& pilot, int32_t level) {
    float defence = static_cast<float>(level) * fight::DefenceOfLevel +
                    static_cast<float>(pilot.skill) * fight::DefenceOfSkill;
    if (pilot.shotdowns == 0)
        defence /= fight::NoVictoryDivisor;
    const int32_t victoriesLacking =
        std::min(fight::VictoriesNotGreen - pilot.shotdowns, fight::MostVictoriesLacking);
    for (int32_t i = 0; i < victoriesLacking; ++i)
        defence /= fight::GreenDivisor;
    for (int32_t i = pilot.missions; i < fight::MissionsNotGreen; ++i)
        defence /= fight::GreenDivisor;
    return defence;
}

/// The draw in units of 2^-32.
float real(uint32_t draw) { return static_cast<float>(static_cast<int64_t>(draw)); }

/// The draw if the condition, 0 or 1, holds, otherwise 0. Integers make the choice, because
/// compilers turn one between floats, or by a bool, into a branch.
float realIf(uint32_t condition, uint32_t draw) { return real(draw & (0U - condition)); }

/// Spoils a value by `Count` aims, whose draws begin at `draws`. Gives the number of draws taken.
/// `above`: bit i is set when draw i is above the attacker's skill.
template <uint32_t Count> uint32_t fumble(float& value, const uint32_t* draws, uint32_t above) {
    static_assert(Count <= AimPath::Aims && fight::AimDraw == FightPlaces - 1);
    const AimPath& path = AimPaths[above & 0xFF];
    for (uint32_t i = 0; i < Count; ++i)
        value *= std::max(real(draws[path.factor[i]]) * WholeDraw, path.least[i]);
    return path.next[Count];
}

} // namespace

void MissionSimulator::reset() {
    pilots.clear();
    opponents.fill(0);
    front = 0;
    alliedLeft = 0;
    centralLeft = 0;
}

void MissionSimulator::loadPlan() {
    if (const MissionGenerator* generator = MissionGenerator::instance())
        loadPlan(generator->plan);
}

void MissionSimulator::loadPlan(const std::vector<PlannedPlane>& plan) {
    pilots.reserve(pilots.size() + plan.size());
    for (const PlannedPlane& plane : plan) {
        PilotReport& pilot = pilots.emplace_back();
        pilot.name = plane.name;
        pilot.type = plane.type;
        pilot.plannedName = plane.name;
        pilot.country = plane.nation;
        pilot.pilot = plane.pilot;
        pilot.skill = plane.skill;
        pilot.shotdowns = plane.shotdowns;
        pilot.missions = plane.missions;
        pilot.spare = SpareOfSimulator;
        ++(isAllied(plane.nation) ? alliedLeft : centralLeft);
    }

    const auto places = std::min(static_cast<int32_t>(pilots.size()), FightPlaces);
    uint16_t allied = 0;
    uint16_t central = 0;
    for (int32_t i = 0; i < places; ++i) {
        const PilotReport& pilot = pilots[i];
        const int32_t level = pilotLevel(pilot.skill, pilot.shotdowns, pilot.missions);
        FightFigures& figure = figures[i];
        figure.attack = attackOf(pilot, level) * HalfDraw;
        figure.defence = defenceOf(pilot, level) * HalfDraw;
        figure.skill = pilot.skill;
        figure.aimLimits.fill(static_cast<int8_t>(std::min(pilot.skill, FightPlaces)));
        uint16_t& side = isAllied(pilot.country) ? allied : central;
        side = static_cast<uint16_t>(side | (1U << i));
    }
    for (int32_t i = 0; i < places; ++i)
        opponents[i] = (allied >> i & 1) != 0 ? central : allied;
    const uint32_t firstSide = (allied & 1) != 0 ? allied : central;
    front = 0;
    while ((firstSide >> front & 1) != 0)
        ++front;
    if (firstSide >> front != 0)
        front = 0;
}

void MissionSimulator::fight(int32_t steps) { takeSteps(steps); }

bool MissionSimulator::fightStep() { return takeSteps(1); }

// Nine of ten steps find no pair; the window skips them in bulk.
bool MissionSimulator::takeSteps(int32_t steps) {
    if (pilots.empty())
        return true;
    DrawWindow window(random, front, std::min(static_cast<int32_t>(pilots.size()), FightPlaces));
    DrawCursor cursor = window.cursorAt(0);
    bool isOver = false;
    while (steps > 0 && !isOver) {
        const uint32_t pair = window.findPair(cursor);
        const int32_t misses = static_cast<int32_t>(pair - cursor.next) / 2;
        if (misses >= steps) {
            cursor.next += 2 * static_cast<uint32_t>(steps);
            break;
        }
        steps -= misses;
        cursor.next = pair;
        if (pair > window.lastStep()) {
            window.take(pair);
            cursor = window.cursorAt(0);
            continue;
        }
        --steps;
        isOver = meet(window, cursor);
    }
    random.skip(cursor.next);
    return isOver;
}

// Whether a meeting takes a draw is often a coin toss, which no processor can predict: both
// outcomes are computed and one is kept.
inline bool MissionSimulator::meet(const DrawWindow& window, DrawCursor& cursor) {
    const uint8_t* places = window.placesAt(cursor.next);
    const int32_t attackerPlace = places[0];
    const int32_t targetPlace = places[1];
    uint32_t next = cursor.next + 2;
    if ((opponents[attackerPlace] >> targetPlace & 1) == 0) {
        cursor = window.cursorAt(next);
        return false;
    }
    const FightFigures& attacker = figures[attackerPlace];
    const FightFigures& target = figures[targetPlace];
    const uint32_t* draws = window.drawsAt(next);
    float value = real(draws[0]) * attacker.attack;
    value += real(draws[1]) * attacker.attack;
    value -= real(draws[2]) * target.defence;
    value -= real(draws[3]) * target.defence;
    const auto defenceDraw = static_cast<int32_t>(draws[4] % (fight::ThirdDefenceDraw + 1));
    const uint32_t defendsWell = target.skill > defenceDraw ? 1 : 0;
    value -= realIf(defendsWell, draws[5]) * target.defence;
    value += std::abs(value); // the halves' sum, no less than 0, and no branch

    const uint32_t above = placesAbove(places + 7, attacker.aimLimits.data()) >> defendsWell;
    next += 5 + defendsWell;
    const uint32_t first = fumble<AimPath::Aims>(value, window.drawsAt(next), above);
    next += first;
    next += fumble<fight::Aims - AimPath::Aims>(value, window.drawsAt(next), above >> first);

    draws = window.drawsAt(next);
    const float good = real(draws[0]) * (fight::Luck * WholeDraw);
    const float bad = real(draws[1]) * (fight::Luck * WholeDraw);
    cursor = window.cursorAt(next + 2);
    const float chance = value + good - bad;
    const uint32_t isHit = chance >= 0 ? 1 : 0;
    const float hit = realIf(isHit, draws[2]) * WholeDraw * chance;
    cursor.take(isHit);
    float injury = 0;
    if (hit > fight::LeastWoundingHit) {
        const uint32_t wound = *window.drawsAt(cursor.next) % (fight::WoundDraw + 1);
        injury = static_cast<float>(wound) * fight::WoundStep;
        cursor.take(1);
    }
    PilotReport& victim = pilots[targetPlace];
    victim.damage += hit;
    victim.injury += injury;
    if (victim.damage < fight::DamageThatDowns)
        return false;
    // One draw is dropped: every career depends on the sequence.
    cursor = window.cursorAt(cursor.next + 1);
    return takeOut(attackerPlace, targetPlace);
}

bool MissionSimulator::takeOut(int32_t attacker, int32_t target) {
    PilotReport& victim = pilots[target];
    victim.shotDown = 1;
    victim.finished = 1;
    if (victim.injury >= fight::InjuryThatKills) {
        victim.dead = 1;
        victim.killCount = 1;
    }
    victim.shotdownBy = attacker;
    pilots[attacker].kills.push_back(target);

    opponents[target] = 0;
    for (uint16_t& others : opponents)
        others = static_cast<uint16_t>(others & ~(1U << target));
    --(isAllied(victim.country) ? alliedLeft : centralLeft);
    return alliedLeft == 0 || centralLeft == 0;
}

void MissionSimulator::applyResult() {
    if (Database* career = Database::instance())
        applyResult(*career);
}

void MissionSimulator::applyResult(Database& career) const { applyReports(pilots, career); }
