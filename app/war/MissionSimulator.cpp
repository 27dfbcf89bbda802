#include "app/war/MissionSimulator.h"

#include <algorithm>

#include "app/career/Database.h"
#include "app/mission/MissionGenerator.h"
#include "app/war/SquadronSimulator.h"

namespace {

constexpr int32_t SpareOfSimulator = 1000;
constexpr float LuckRange = 0.305F;
constexpr float LeastWoundingHit = 0.1F;

float attackOf(const PilotReport& pilot) {
    const int32_t level =
        SquadronSimulator::pilotLevel(pilot.skill, pilot.shotdowns, pilot.missions);
    float attack = static_cast<float>(level) * 0.06F;
    if (level > 2)
        attack += static_cast<float>(pilot.skill) * 0.06F;
    return attack;
}

/// Few victories and few missions make a pilot easier to hit.
float defenceOf(const PilotReport& pilot) {
    const int32_t level =
        SquadronSimulator::pilotLevel(pilot.skill, pilot.shotdowns, pilot.missions);
    float defence = static_cast<float>(level) * 0.092F + static_cast<float>(pilot.skill) * 0.01F;
    if (pilot.shotdowns == 0)
        defence /= 1.2F;
    const int32_t penalties = pilot.shotdowns == 0 ? 4 : std::max(5 - pilot.shotdowns, 0);
    for (int32_t i = 0; i < penalties; ++i)
        defence /= 1.05F;
    for (int32_t i = 0; i < 5; ++i)
        if (i > pilot.missions)
            defence /= 1.05F;
    return defence;
}

} // namespace

void MissionSimulator::reset() {
    pilots.clear();
    opponents.fill(0);
    alliedLeft = 0;
    centralLeft = 0;
}

void MissionSimulator::loadPlan() {
    const MissionGenerator* generator = MissionGenerator::instance();
    if (generator == nullptr)
        return;
    pilots.reserve(pilots.size() + generator->plan.size());
    for (const PlannedPlane& plane : generator->plan) {
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

    const auto places = std::min(static_cast<int32_t>(pilots.size()), Places);
    uint16_t allied = 0;
    uint16_t central = 0;
    for (int32_t i = 0; i < places; ++i) {
        const PilotReport& pilot = pilots[static_cast<size_t>(i)];
        fighters[static_cast<size_t>(i)] = {attackOf(pilot), defenceOf(pilot), pilot.skill};
        uint16_t& side = isAllied(pilot.country) ? allied : central;
        side = static_cast<uint16_t>(side | (1U << i));
    }
    for (int32_t i = 0; i < places; ++i)
        opponents[static_cast<size_t>(i)] = (allied >> i & 1) != 0 ? central : allied;
}

void MissionSimulator::fight(int32_t steps) {
    for (int32_t i = 0; i < steps; ++i)
        if (fightStep())
            return;
}

// Nine steps of ten find no pair, so this is all that they cost: two draws and the test of a bit.
bool MissionSimulator::fightStep() {
    if (pilots.empty())
        return true;
    const int32_t attacker = random.getInt(0, Places - 1);
    const int32_t target = random.getInt(0, Places - 1);
    if ((opponents[static_cast<size_t>(attacker)] >> target & 1) == 0)
        return false;
    return meet(attacker, target);
}

float MissionSimulator::drawAttack(const Fighter& attacker, const Fighter& target) {
    float value = random.getFloat(0, attacker.attack);
    value += random.getFloat(0, attacker.attack);
    value -= random.getFloat(0, target.defence);
    value -= random.getFloat(0, target.defence);
    if (target.skill > random.getInt(0, 13))
        value -= random.getFloat(0, target.defence);
    value = std::max(value, 0.0F);
    for (int32_t i = 0; i < 7; ++i)
        if (random.getInt(0, 15) > attacker.skill)
            value = random.getFloat(0, value);
    return value;
}

bool MissionSimulator::meet(int32_t attacker, int32_t target) {
    const float value =
        drawAttack(fighters[static_cast<size_t>(attacker)], fighters[static_cast<size_t>(target)]);
    const float good = random.getFloat(0, LuckRange);
    const float bad = random.getFloat(0, LuckRange);
    const float chance = value + good - bad;
    if (chance < 0)
        return false;
    const float hit = random.getFloat(0, chance);
    float injury = 0;
    if (hit > LeastWoundingHit)
        injury = static_cast<float>(random.getInt(0, 4)) * 0.25F;
    PilotReport& victim = pilots[static_cast<size_t>(target)];
    victim.damage += hit;
    victim.injury += injury;
    if (victim.damage >= 1.0F)
        return takeOut(attacker, target);
    return alliedLeft == 0 || centralLeft == 0;
}

bool MissionSimulator::takeOut(int32_t attacker, int32_t target) {
    random.getInt(0, 12); // drawn and dropped: the sequence of draws is what careers are made of
    PilotReport& victim = pilots[static_cast<size_t>(target)];
    victim.shotDown = 1;
    victim.finished = 1;
    if (victim.injury >= 1.0F) {
        victim.dead = 1;
        victim.killCount = 1;
    }
    victim.shotdownBy = attacker;
    pilots[static_cast<size_t>(attacker)].kills.push_back(target);

    opponents[static_cast<size_t>(target)] = 0;
    for (uint16_t& others : opponents)
        others = static_cast<uint16_t>(others & ~(1U << target));
    --(isAllied(victim.country) ? alliedLeft : centralLeft);
    return alliedLeft == 0 || centralLeft == 0;
}

void MissionSimulator::applyResult() {
    if (Database* career = Database::instance())
        applyReports(pilots, *career);
}
