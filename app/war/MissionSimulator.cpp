#include "app/war/MissionSimulator.h"

#include <algorithm>
#include <cmath>

#include "app/career/Database.h"
#include "app/career/PilotLevel.h"
#include "app/mission/MissionGenerator.h"
#include "app/war/FightRules.h"

namespace {

constexpr int32_t SpareOfSimulator = 1000;

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
        figures[i] = {attackOf(pilot, level), defenceOf(pilot, level), pilot.skill};
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

// Nine of ten steps find no pair; these are detected and skipped in bulk.
void MissionSimulator::fight(int32_t steps) {
    MeetingMap map(front, std::min(static_cast<int32_t>(pilots.size()), FightPlaces));
    while (steps > 0) {
        if (front > 0)
            steps -= map.skipMisses(random, steps);
        if (steps-- > 0 && fightStep())
            return;
    }
}

bool MissionSimulator::fightStep() {
    if (pilots.empty())
        return true;
    const int32_t attacker = random.getIntUpTo<FightPlaces - 1>();
    const int32_t target = random.getIntUpTo<FightPlaces - 1>();
    if ((opponents[attacker] >> target & 1) == 0)
        return false;
    if (const uint32_t* values = random.ahead(ReadyDraws::MostOfMeeting)) {
        ReadyDraws draws(random, values);
        return meet(draws, attacker, target);
    }
    PlainDraws draws(random);
    return meet(draws, attacker, target);
}

template <typename Draws>
bool MissionSimulator::meet(Draws& draws, int32_t attackerPlace, int32_t targetPlace) {
    const FightFigures& attacker = figures[attackerPlace];
    const FightFigures& target = figures[targetPlace];
    float value = draws.getFloat(attacker.attack);
    value += draws.getFloat(attacker.attack);
    value -= draws.getFloat(target.defence);
    value -= draws.getFloat(target.defence);
    const bool defendsWell = target.skill > draws.template getInt<fight::ThirdDefenceDraw>();
    value -= draws.getFloatIf(defendsWell, target.defence);
    value = (value + std::abs(value)) / 2; // no less than 0, and no branch
    value = draws.fumble(value, attacker.skill, fight::Aims);
    const float good = draws.getFloat(fight::Luck);
    const float bad = draws.getFloat(fight::Luck);
    const float chance = value + good - bad;
    const float hit = draws.getFloatIf(chance >= 0, chance);
    float injury = 0;
    if (hit > fight::LeastWoundingHit)
        injury = static_cast<float>(draws.template getInt<fight::WoundDraw>()) * fight::WoundStep;
    PilotReport& victim = pilots[targetPlace];
    victim.damage += hit;
    victim.injury += injury;
    return victim.damage >= fight::DamageThatDowns && takeOut(draws, attackerPlace, targetPlace);
}

template <typename Draws>
bool MissionSimulator::takeOut(Draws& draws, int32_t attacker, int32_t target) {
    draws.template getInt<fight::DroppedDraw>(); // the sequence of draws is part of every career
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
