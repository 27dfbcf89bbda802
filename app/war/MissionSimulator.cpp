#include "app/war/MissionSimulator.h"

#include <algorithm>

#include "app/career/Database.h"
#include "app/career/PilotLevel.h"
#include "app/mission/MissionGenerator.h"
#include "app/war/FightRules.h"

namespace {

constexpr int32_t SpareOfSimulator = 1000;

float attackOf(const PilotReport& pilot) {
    const int32_t level = pilotLevel(pilot.skill, pilot.shotdowns, pilot.missions);
    float attack = static_cast<float>(level) * fight::AttackOfLevel;
    if (level >= fight::LevelThatUsesSkill)
        attack += static_cast<float>(pilot.skill) * fight::AttackOfSkill;
    return attack;
}

/// Few victories and few missions make a pilot easier to hit.
float defenceOf(const PilotReport& pilot) {
    const int32_t level = pilotLevel(pilot.skill, pilot.shotdowns, pilot.missions);
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

/// A generator's draws as a meeting takes them, one by one.
class PlainDraws {
public:
    explicit PlainDraws(zel::Random& random) : random(random) {}
    template <uint32_t Most> int32_t getInt() { return random.getIntUpTo<Most>(); } // from 0
    float getFloat(float most) { return random.getFloat(0, most); }
    /// A draw up to `most` if the condition holds, otherwise `otherwise` and no draw.
    float getFloatIf(bool condition, float most, float otherwise) {
        return condition ? getFloat(most) : otherwise;
    }

private:
    zel::Random& random;
};

/// The same draws out of values that stand ready. Whether a draw is taken is as good as a coin's
/// toss, which no processor can foresee: so both outcomes are reckoned and one is kept.
class ReadyDraws {
public:
    ReadyDraws(zel::Random& random, const uint32_t* values)
        : random(random), first(values), next(values) {}
    ~ReadyDraws() { random.skip(static_cast<uint32_t>(next - first)); }
    ReadyDraws(const ReadyDraws&) = delete;
    ReadyDraws& operator=(const ReadyDraws&) = delete;

    template <uint32_t Most> int32_t getInt() { return static_cast<int32_t>(*next++ % (Most + 1)); }
    float getFloat(float most) { return static_cast<float>(*next++) * 0x1p-32F * most; }
    float getFloatIf(bool condition, float most, float otherwise) {
        const float drawn = static_cast<float>(*next) * 0x1p-32F * most;
        next += condition ? 1 : 0;
        return condition ? drawn : otherwise;
    }

private:
    zel::Random& random;
    const uint32_t* first;
    const uint32_t* next;
};

constexpr uint32_t MostDrawsOfMeeting = 26;

} // namespace

void MissionSimulator::reset() {
    pilots.clear();
    opponents.fill(0);
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
    const int32_t attacker = random.getIntUpTo<Places - 1>();
    const int32_t target = random.getIntUpTo<Places - 1>();
    if ((opponents[static_cast<size_t>(attacker)] >> target & 1) == 0)
        return false;
    return meet(attacker, target);
}

bool MissionSimulator::meet(int32_t attacker, int32_t target) {
    if (const uint32_t* values = random.ahead(MostDrawsOfMeeting)) {
        ReadyDraws draws(random, values);
        return meetWith(draws, attacker, target);
    }
    PlainDraws draws(random);
    return meetWith(draws, attacker, target);
}

template <typename Draws>
bool MissionSimulator::meetWith(Draws& draws, int32_t attackerPlace, int32_t targetPlace) {
    const Fighter& attacker = fighters[static_cast<size_t>(attackerPlace)];
    const Fighter& target = fighters[static_cast<size_t>(targetPlace)];
    float value = draws.getFloat(attacker.attack);
    value += draws.getFloat(attacker.attack);
    value -= draws.getFloat(target.defence);
    value -= draws.getFloat(target.defence);
    const bool defendsWell = target.skill > draws.template getInt<fight::ThirdDefenceDraw>();
    value -= draws.getFloatIf(defendsWell, target.defence, 0);
    value = std::max(value, 0.0F);
    for (int32_t i = 0; i < fight::Aims; ++i) {
        const bool fumbles = draws.template getInt<fight::AimDraw>() > attacker.skill;
        value = draws.getFloatIf(fumbles, value, value);
    }
    const float good = draws.getFloat(fight::Luck);
    const float bad = draws.getFloat(fight::Luck);
    const float chance = value + good - bad;
    if (chance < 0)
        return false;
    const float hit = draws.getFloat(chance);
    float injury = 0;
    if (hit > fight::LeastWoundingHit)
        injury = static_cast<float>(draws.template getInt<fight::WoundDraw>()) * fight::WoundStep;
    PilotReport& victim = pilots[static_cast<size_t>(targetPlace)];
    victim.damage += hit;
    victim.injury += injury;
    if (victim.damage >= fight::DamageThatDowns)
        return takeOut(draws, attackerPlace, targetPlace);
    return alliedLeft == 0 || centralLeft == 0;
}

template <typename Draws>
bool MissionSimulator::takeOut(Draws& draws, int32_t attacker, int32_t target) {
    draws.template getInt<fight::DroppedDraw>(); // the sequence of draws is part of every career
    PilotReport& victim = pilots[static_cast<size_t>(target)];
    victim.shotDown = 1;
    victim.finished = 1;
    if (victim.injury >= fight::InjuryThatKills) {
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
        applyResult(*career);
}

void MissionSimulator::applyResult(Database& career) const { applyReports(pilots, career); }
