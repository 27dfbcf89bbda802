#include "standin/fight/DogfightFire.h"

#include <algorithm>

namespace standin {

namespace {

constexpr double RoundsPerSecond = 8; // of one gun
constexpr double Apart = 8;           // metres within which planes may collide
constexpr int32_t BulletWound = 250;  // thousandths: four kill
constexpr double PilotShare = 0.045;  // of the bullets that hit
constexpr double DamageShare = 0.35;  // likewise; the rest goes through the canvas
constexpr double ApShare = 0.45;      // armour-piercing rounds in a belt
constexpr double GunRange = 1100;     // metres from which a gun on the ground fires
constexpr int32_t Whole = 1000;

} // namespace

void DogfightFire::fire(int32_t index) {
    Fighter& fighter = fighters[index];
    if (fighter.task != FighterTask::Attack || fighter.target == Nobody || fighter.rounds == 0)
        return;
    const int32_t target = fighter.target;
    if (!isFlying(fighters[target])) {
        fighter.target = Nobody;
        return;
    }
    const Fighter& other = fighters[target];
    const double away = distance(other.position, fighter.position);
    const Vector aim = other.position + other.direction * (other.speed * away / BulletSpeed);
    const double cone = skill(index).cone * Pi / 180;
    const double off = angleBetween(fighter.direction, normalized(aim - fighter.position));
    if (fighter.burst <= 0) {
        fighter.burst += StepSeconds;
        if (fighter.burst <= 0 || away > skill(index).range || off > cone)
            return;
        fighter.burst = draw(0.5, 1.6);
    }
    fighter.burst -= StepSeconds;
    if (fighter.burst <= 0 || off > cone * 1.5)
        fighter.burst = -draw(0.3, 1.2);
    const double near = std::min(1.0, rounded(std::pow(100 / std::max(away, 1.0), 1.3)));
    const double spread = off / cone;
    const double odds = skill(index).aim * near * rounded(std::exp(-spread * spread * 2));
    fighter.partRound += typeOf(index).guns * RoundsPerSecond * StepSeconds;
    while (fighter.partRound >= 1 && fighter.rounds > 0) {
        fighter.partRound -= 1;
        --fighter.rounds;
        if (chance(odds) && isFlying(fighters[target]))
            hit(index, target);
    }
}

/// A bullet into a plane: the man, the works, or a hole.
void DogfightFire::hit(int32_t attacker, int32_t target) {
    Fighter& fighter = fighters[target];
    fighter.lastAttacker = attacker;
    const bool inBody = chance(PilotShare);
    const bool armourPiercing = chance(ApShare);
    const int32_t struck = inBody ? bodyOf(target) : target;
    writeEvent(EventKind::Hit, attacker, struck, 0, fighter.position, armourPiercing);
    if (inBody) {
        hurtPilot(attacker, target, BulletWound);
        damagePlane(attacker, target, random.getInt(30, 35));
    } else if (chance(DamageShare)) {
        damagePlane(attacker, target, random.getInt(5, 16));
    }
    const double weakness = 0.004 + 0.05 * fighter.damage / Whole;
    if (!fighter.destroyed && chance(weakness))
        destroy(attacker, target);
}

void DogfightFire::hurtPilot(int32_t attacker, int32_t target, int32_t amount) {
    Fighter& fighter = fighters[target];
    const bool spared = options.woundHuman && !options.killHuman && target == human();
    if (!fighter.pilotAlive || (spared && fighter.wounds + amount >= Whole))
        return;
    fighter.wounds += amount;
    writeEvent(EventKind::Damage, attacker, bodyOf(target), amount, fighter.position);
    if (fighter.wounds < Whole)
        return;
    writeEvent(EventKind::Destroyed, attacker, bodyOf(target), 0, fighter.position);
    fighter.pilotAlive = false;
    if (target == human() && fighter.task != FighterTask::Down && chance(0.5))
        endHumanAfter(draw(3, 12)); // otherwise when the wreck is down
    if (fighter.task == FighterTask::Down)
        return;
    if (!fighter.destroyed && chance(0.5))
        destroy(attacker, target);
    loseControl(target);
}

void DogfightFire::damagePlane(int32_t attacker, int32_t target, int32_t amount) {
    Fighter& fighter = fighters[target];
    if (fighter.destroyed)
        return;
    fighter.damage += amount;
    writeEvent(EventKind::Damage, attacker, target, amount, fighter.position);
    if (fighter.damage < Whole - 15)
        return;
    fighter.destroyed = true;
    writeEvent(EventKind::Destroyed, attacker, target, 0, fighter.position);
    loseControl(target);
}

/// Takes the plane's remaining strength at once: a wing, the tank or the engine fails.
void DogfightFire::destroy(int32_t attacker, int32_t target) {
    const int32_t left = Whole - fighters[target].damage - random.getInt(0, 12);
    damagePlane(attacker, target, std::max(left, 5));
}

void DogfightFire::loseControl(int32_t index) {
    Fighter& fighter = fighters[index];
    if (fighter.task == FighterTask::Fall || fighter.task == FighterTask::Down)
        return;
    fighter.task = FighterTask::Fall;
    fighter.target = Nobody;
    fighter.gliding = fighter.pilotAlive && chance(0.3);
    fighter.side = random.getInt(0, 1) == 0 ? 1 : -1;
}

void DogfightFire::crash(int32_t index) {
    Fighter& fighter = fighters[index];
    const bool soft = fighter.gliding;
    fighter.task = FighterTask::Down;
    if (!fighter.destroyed)
        destroy(Nobody, index);
    else if (chance(0.03))
        writeEvent(EventKind::Destroyed, Nobody, index, 0,
                   fighter.position); // reports the wreck again
    if (fighter.pilotAlive)
        hurtInCrash(index, soft);
    writeEvent(EventKind::Landed, Nobody, index, 0, fighter.position);
    if (index == human())
        endHumanAfter(draw(5, 18));
}

void DogfightFire::hurtInCrash(int32_t index, bool soft) {
    Fighter& fighter = fighters[index];
    bool dies = chance(soft ? 0.08 : 0.7);
    if (index == human() && (options.killHuman || options.woundHuman))
        dies = options.killHuman;
    const bool credited = fighter.lastAttacker != Nobody && chance(0.35);
    if (dies) {
        hurtPilot(credited ? fighter.lastAttacker : Nobody, index, Whole - fighter.wounds);
        return;
    }
    int32_t amount = chance(soft ? 0.2 : 0.7) ? random.getInt(50, 450) : 0;
    if (index == human() && options.woundHuman && fighter.wounds == 0)
        amount = std::max(amount, 120);
    if (amount > 0 && fighter.wounds + amount < Whole - 100)
        hurtPilot(Nobody, index, amount);
}

/// Planes that come too close may still miss each other.
void DogfightFire::collide() {
    for (int32_t a = 0; a < count(); ++a)
        for (int32_t b = 0; b < a; ++b) {
            if (distance(fighters[a].position, fighters[b].position) > Apart ||
                !isFlying(fighters[a]) || !isFlying(fighters[b]) || !chance(0.05))
                continue;
            ram(a, b);
            ram(b, a);
        }
}

/// The damage that one plane does to the other in a collision.
void DogfightFire::ram(int32_t attacker, int32_t target) {
    if (chance(0.6))
        destroy(attacker, target);
    else
        damagePlane(attacker, target, random.getInt(60, 500));
}

/// Places an enemy gun somewhere below the human's route home.
void DogfightFire::placeGun() {
    const Fighter& fighter = fighters[human()];
    const Vector way = fighter.home - fighter.position;
    const double share = draw(0.1, 0.4);
    const Vector aside{draw(-200, 200), 0, draw(-200, 200)};
    Vector place = fighter.position + way * share + aside;
    place.y = ground;
    for (int32_t i = 0; i < count(); ++i)
        if (areEnemies(i, human())) {
            flight.guns.push_back({mission.planes[i].country, place});
            gunHits += random.getInt(2, 14);
            return;
        }
}

void DogfightFire::fireGun() {
    if (flight.guns.empty() || gunHits == 0 || !isFlying(fighters[human()]) ||
        distance(flight.guns.back().position, fighters[human()].position) > GunRange)
        return;
    if (!chance(0.06))
        return;
    --gunHits;
    hit(lastGun(), human());
}

int32_t DogfightFire::nearestEnemy(int32_t index) const {
    int32_t nearest = Nobody;
    double best = 2500; // nobody is credited with a shot from farther away
    for (int32_t i = 0; i < count(); ++i) {
        const double away = distance(fighters[i].position, fighters[index].position);
        if (!areEnemies(i, index) || !isFlying(fighters[i]) || away > best)
            continue;
        nearest = i;
        best = away;
    }
    return nearest;
}

/// Applies the requested wound or death if it hasn't happened yet.
void DogfightFire::meddle() {
    const Fighter& fighter = fighters[human()];
    if ((!options.killHuman && !options.woundHuman) || !isFlying(fighter) ||
        (time < meddleTime && fighter.task != FighterTask::Home))
        return;
    if (!options.killHuman && fighter.wounds > 0)
        return;
    int32_t attacker = nearestEnemy(human());
    if (attacker == Nobody && options.killHuman) {
        loseControl(human()); // and the ground does it
        return;
    }
    if (attacker == Nobody) {
        placeGun();
        attacker = lastGun();
    }
    woundOrKill(attacker);
}

void DogfightFire::woundOrKill(int32_t attacker) {
    Fighter& fighter = fighters[human()];
    fighter.lastAttacker = attacker;
    const int32_t bullets = options.killHuman ? Whole / BulletWound : random.getInt(1, 3);
    for (int32_t bullet = 0; bullet < bullets && fighter.pilotAlive; ++bullet) {
        const bool armourPiercing = chance(ApShare);
        writeEvent(EventKind::Hit, attacker, bodyOf(human()), 0, fighter.position, armourPiercing);
        hurtPilot(attacker, human(), BulletWound);
    }
}

} // namespace standin
