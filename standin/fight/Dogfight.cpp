#include "standin/fight/Dogfight.h"

#include <algorithm>

namespace standin {

namespace {

constexpr int32_t StepTicks = 5;
constexpr double LongestFlight = 2700; // seconds; nobody has more fuel
constexpr double ChaseRange = 2500;    // metres after somebody who goes home
constexpr int32_t BadWound = 500;      // thousandths from which a pilot goes home
constexpr int32_t BadDamage = 550;     // likewise

// The shares are tuned so that a fight of two flights costs each side about every third plane.
// clang-format off
constexpr Skill Skills[] = {
    // turn  cone   range  aim   aware  decide caution
    {0.93,   4.5,   210,  0.27,  0.80,  0.4,  0.95}, // the human
    {0.62,   6.5,   280,  0.08,  0.12,  1.2,  0.60},
    {0.78,   5.5,   240,  0.17,  0.33,  0.8,  0.80},
    {0.90,   4.5,   210,  0.27,  0.55,  0.5,  0.95},
    {0.98,   4.0,   180,  0.38,  0.75,  0.4,  1.00},
};
// clang-format on

} // namespace

const Skill& skillOf(int32_t level) { return Skills[std::clamp(level, 0, 4)]; }

Dogfight::Dogfight(const Mission& mission, const FightOptions& options, zel::Random& random)
    : mission(mission), options(options), random(random), fighters(mission.planes.size()) {
    ground = draw(45, 110);
    for (const Plane& plane : mission.planes)
        if (!plane.inAir)
            ground = plane.position.y;
    double orders = 0; // seconds for which somebody has one
    attackTime = mission.areas.front().delay;
    for (const AttackArea& area : mission.areas) {
        orders = std::max(orders, area.delay + area.seconds);
        attackTime = std::min(attackTime, area.delay);
    }
    fightLimit = std::min(orders, attackTime + draw(300, 1200));
    meddleTime = attackTime + draw(60, 240);
    humanLands = chance(0.75);
    for (size_t i = 0; i < fighters.size(); ++i) {
        const Plane& plane = mission.planes[i];
        Fighter& fighter = fighters[i];
        fighter.position = plane.position;
        fighter.direction = fighter.wanted = levelDirection(plane.heading);
        fighter.home = plane.position - fighter.direction * (plane.inAir ? draw(6000, 15000) : 0);
        fighter.home.y = ground;
        fighter.rounds = typeOf(i).rounds;
        fighter.speed = plane.inAir ? topSpeed(i) * 0.8 : 0;
        fighter.task = plane.inAir ? Task::Formation : Task::Ground;
        fighter.untilTask = plane.inAir ? 0 : draw(15, 45);
        fighter.untilDecision = draw(0, 0.5);
    }
}

Flight Dogfight::run() {
    while (flight.endTick == 0 || tick + StepTicks <= flight.endTick)
        step();
    for (const Fighter& fighter : fighters)
        flight.planes.push_back({fighter.pilotAlive, fighter.destroyed,
                                 fighter.task == Task::Down || fighter.task == Task::Ground,
                                 fighter.rounds, fighter.position});
    return std::move(flight);
}

void Dogfight::step() {
    for (size_t i = 0; i < fighters.size(); ++i) {
        decide(i);
        fly(i);
    }
    for (size_t i = 0; i < fighters.size(); ++i)
        fire(i);
    collide();
    fireGun();
    meddle();
    tellPosition();
    checkEnd();
    tick += StepTicks;
    time = static_cast<double>(tick) / TicksPerSecond;
}

void Dogfight::decide(size_t index) {
    Fighter& fighter = fighters[index];
    if (!isFighting(fighter) || fighter.task == Task::Climb)
        return;
    fighter.untilDecision -= StepSeconds;
    if (fighter.untilDecision > 0)
        return;
    fighter.untilDecision = skill(index).decision * draw(0.6, 1.4);
    if (fighter.wounds >= BadWound || fighter.damage >= BadDamage || fighter.rounds == 0) {
        sendHome(index);
        return;
    }
    const bool ordered = mission.planes[index].area >= 0 || index == human();
    if (fighter.task == Task::Formation && ordered && time >= attackTime)
        fighter.task = Task::Attack;
    if (fighter.task != Task::Evade && threatTo(index) != Nobody &&
        chance(skill(index).awareness)) {
        breakOff(index, draw(2.5, 6));
        return;
    }
    if (fighter.task == Task::Attack)
        chooseTarget(index);
}

/// The nearest enemy, if he is in front and not already somebody else's.
void Dogfight::chooseTarget(size_t index) {
    Fighter& fighter = fighters[index];
    double best = 0;
    int32_t chosen = Nobody;
    for (size_t i = 0; i < fighters.size(); ++i) {
        const Fighter& other = fighters[i];
        const double away = distance(fighter.position, other.position);
        if (!areEnemies(index, i) || !isFlying(other) ||
            (other.task == Task::Home && away > ChaseRange))
            continue;
        const Vector towards = normalized(other.position - fighter.position);
        double cost = away + 200 * angleBetween(fighter.direction, towards) + draw(0, 150);
        cost += other.task == Task::Home ? 600 : 0;
        cost -= fighter.target == static_cast<int32_t>(i) ? 250 : 0;
        for (size_t friendly = 0; friendly < fighters.size(); ++friendly)
            if (friendly != index && fighters[friendly].target == static_cast<int32_t>(i) &&
                fighters[friendly].task == Task::Attack)
                cost += 250;
        if (chosen == Nobody || cost < best) {
            chosen = static_cast<int32_t>(i);
            best = cost;
        }
    }
    fighter.target = chosen;
}

/// An enemy behind him whose guns point his way.
int32_t Dogfight::threatTo(size_t index) const {
    const Fighter& fighter = fighters[index];
    for (size_t i = 0; i < fighters.size(); ++i) {
        const Fighter& other = fighters[i];
        if (!areEnemies(index, i) || other.task != Task::Attack ||
            distance(other.position, fighter.position) > 350)
            continue;
        const Vector line = normalized(fighter.position - other.position);
        if (angleBetween(other.direction, line) < 0.35 && dot(fighter.direction, line) > 0.2)
            return static_cast<int32_t>(i);
    }
    return Nobody;
}

bool Dogfight::isFlying(const Fighter& fighter) const {
    return fighter.pilotAlive && !fighter.destroyed && fighter.task != Task::Ground &&
           fighter.task != Task::Fall && fighter.task != Task::Down;
}

bool Dogfight::isFighting(const Fighter& fighter) const {
    return isFlying(fighter) && fighter.task != Task::Home;
}

bool Dogfight::isOver() const {
    if (time > fightLimit)
        return true;
    for (size_t a = 0; a < fighters.size(); ++a)
        for (size_t b = 0; b < a; ++b) {
            const auto stillIn = [&](size_t i) {
                return isFighting(fighters[i]) || fighters[i].task == Task::Ground;
            };
            if (areEnemies(a, b) && stillIn(a) && stillIn(b))
                return false;
        }
    return true;
}

void Dogfight::sendHome(size_t index) {
    fighters[index].task = Task::Home;
    fighters[index].target = Nobody;
    if (index != human())
        return;
    if (!humanLands)
        endHumanAfter(draw(40, 200));
    if (chance(0.4))
        placeGun();
}

void Dogfight::tellPosition() {
    if (nextPositionTick >= tick + StepTicks || fighters[human()].task == Task::Down)
        return;
    lastTick = std::max(lastTick, nextPositionTick);
    flight.events.push_back({EventKind::Position, lastTick, Nobody, mission.human, 0, false,
                             fighters[human()].position});
    nextPositionTick += random.getInt(2500, 9000);
}

void Dogfight::checkEnd() {
    if (!fightOver && tick % TicksPerSecond == 0 && time > attackTime && isOver()) {
        fightOver = true;
        for (size_t i = 0; i < fighters.size(); ++i)
            if (isFighting(fighters[i]))
                sendHome(i);
    }
    if (time > LongestFlight)
        endHumanAfter(0);
}

/// The first reason counts.
void Dogfight::endHumanAfter(double seconds) {
    if (flight.endTick == 0)
        flight.endTick = tick + StepTicks + static_cast<int32_t>(seconds * TicksPerSecond);
}

void Dogfight::tell(EventKind kind, int32_t attacker, int32_t target, int32_t damage,
                    const Vector& position, bool armourPiercing) {
    const int32_t later = random.getInt(0, StepTicks - 1);
    lastTick = std::max(lastTick, tick + later);
    flight.events.push_back({kind, lastTick, attacker, target, damage, armourPiercing, position});
}

double Dogfight::draw(double from, double to) {
    return from + (to - from) * static_cast<double>(random.getFloat());
}

bool Dogfight::areEnemies(size_t a, size_t b) const {
    return mission.planes[a].coalition != mission.planes[b].coalition;
}

const StandInFigures& Dogfight::typeOf(size_t index) const {
    return aircraftType(mission.planes[index].aircraft);
}

} // namespace standin
