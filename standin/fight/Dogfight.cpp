#include "standin/fight/Dogfight.h"

#include <algorithm>

namespace standin {

namespace {

constexpr double LongestFlight = 2700; // seconds; nobody has more fuel
constexpr double ChaseRange = 2500;    // metres of pursuit of a plane that goes home
constexpr int32_t BadWound = 500;      // thousandths from which a pilot goes home
constexpr int32_t BadDamage = 550;     // likewise

} // namespace

FlightCourse Dogfight::run() {
    while (flight.endTick == 0 || tick + StepTicks <= flight.endTick)
        step();
    for (const Fighter& fighter : fighters)
        flight.planes.push_back(
            {fighter.pilotAlive, fighter.destroyed,
             fighter.task == FighterTask::Down || fighter.task == FighterTask::Ground,
             fighter.rounds, fighter.position});
    return std::move(flight);
}

void Dogfight::step() {
    for (int32_t i = 0; i < count(); ++i) {
        decide(i);
        fly(i);
    }
    for (int32_t i = 0; i < count(); ++i)
        fire(i);
    collide();
    fireGun();
    meddle();
    writePosition();
    checkEnd();
    tick += StepTicks;
    time = static_cast<double>(tick) / TicksPerSecond;
}

void Dogfight::decide(int32_t index) {
    Fighter& fighter = fighters[index];
    if (!isFighting(fighter) || fighter.task == FighterTask::Climb)
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
    if (fighter.task == FighterTask::Formation && ordered && time >= attackTime)
        fighter.task = FighterTask::Attack;
    if (fighter.task != FighterTask::Evade && threatTo(index) != Nobody &&
        chance(skill(index).awareness)) {
        breakOff(index, draw(2.5, 6));
        return;
    }
    if (fighter.task == FighterTask::Attack)
        chooseTarget(index);
}

/// The nearest enemy, if he is in front and not already somebody else's target.
void Dogfight::chooseTarget(int32_t index) {
    Fighter& fighter = fighters[index];
    double best = 0;
    int32_t chosen = Nobody;
    for (int32_t i = 0; i < count(); ++i) {
        const Fighter& other = fighters[i];
        const double away = distance(fighter.position, other.position);
        if (!areEnemies(index, i) || !isFlying(other) ||
            (other.task == FighterTask::Home && away > ChaseRange))
            continue;
        const Vector towards = normalized(other.position - fighter.position);
        double cost = away + 200 * angleBetween(fighter.direction, towards) + draw(0, 150);
        cost += other.task == FighterTask::Home ? 600 : 0;
        cost -= fighter.target == i ? 250 : 0;
        for (int32_t friendly = 0; friendly < count(); ++friendly)
            if (friendly != index && fighters[friendly].target == i &&
                fighters[friendly].task == FighterTask::Attack)
                cost += 250;
        if (chosen == Nobody || cost < best) {
            chosen = i;
            best = cost;
        }
    }
    fighter.target = chosen;
}

/// An enemy behind him whose guns point his way.
int32_t Dogfight::threatTo(int32_t index) const {
    const Fighter& fighter = fighters[index];
    for (int32_t i = 0; i < count(); ++i) {
        const Fighter& other = fighters[i];
        if (!areEnemies(index, i) || other.task != FighterTask::Attack ||
            distance(other.position, fighter.position) > 350)
            continue;
        const Vector line = normalized(fighter.position - other.position);
        if (angleBetween(other.direction, line) < 0.35 && dot(fighter.direction, line) > 0.2)
            return i;
    }
    return Nobody;
}

bool Dogfight::isFighting(const Fighter& fighter) const {
    return isFlying(fighter) && fighter.task != FighterTask::Home;
}

bool Dogfight::isOver() const {
    if (time > fightLimit)
        return true;
    for (int32_t a = 0; a < count(); ++a)
        for (int32_t b = 0; b < a; ++b) {
            const auto stillIn = [&](int32_t i) {
                return isFighting(fighters[i]) || fighters[i].task == FighterTask::Ground;
            };
            if (areEnemies(a, b) && stillIn(a) && stillIn(b))
                return false;
        }
    return true;
}

void Dogfight::sendHome(int32_t index) {
    fighters[index].task = FighterTask::Home;
    fighters[index].target = Nobody;
    if (index != human())
        return;
    if (!humanLands)
        endHumanAfter(draw(40, 200));
    if (chance(0.4))
        placeGun();
}

void Dogfight::writePosition() {
    if (nextPositionTick >= tick + StepTicks || fighters[human()].task == FighterTask::Down)
        return;
    lastTick = std::max(lastTick, nextPositionTick);
    flight.events.push_back({EventKind::Position, lastTick, Nobody, mission.human, 0, false,
                             fighters[human()].position});
    nextPositionTick += random.getInt(2500, 9000);
}

void Dogfight::checkEnd() {
    if (!fightOver && tick % TicksPerSecond == 0 && time > attackTime && isOver()) {
        fightOver = true;
        for (int32_t i = 0; i < count(); ++i)
            if (isFighting(fighters[i]))
                sendHome(i);
    }
    if (time > LongestFlight)
        endHumanAfter(0);
}

} // namespace standin
