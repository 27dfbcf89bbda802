#include "standin/fight/Battle.h"

#include <algorithm>

namespace standin {

Battle::Battle(const Mission& mission, const FightOptions& options, zel::Random& random)
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
    for (int32_t i = 0; i < count(); ++i) {
        const Plane& plane = mission.planes[i];
        Fighter& fighter = fighters[i];
        fighter.position = plane.position;
        fighter.direction = fighter.wanted = levelDirection(plane.heading);
        fighter.home = plane.position - fighter.direction * (plane.inAir ? draw(6000, 15000) : 0);
        fighter.home.y = ground;
        fighter.rounds = typeOf(i).rounds;
        fighter.speed = plane.inAir ? topSpeed(i) * 0.8 : 0;
        fighter.task = plane.inAir ? FighterTask::Formation : FighterTask::Ground;
        fighter.untilTask = plane.inAir ? 0 : draw(15, 45);
        fighter.untilDecision = draw(0, 0.5);
    }
}

bool Battle::isFlying(const Fighter& fighter) const {
    return fighter.pilotAlive && !fighter.destroyed && fighter.task != FighterTask::Ground &&
           fighter.task != FighterTask::Fall && fighter.task != FighterTask::Down;
}

/// The first reason counts.
void Battle::endHumanAfter(double seconds) {
    if (flight.endTick == 0)
        flight.endTick = tick + StepTicks + static_cast<int32_t>(seconds * TicksPerSecond);
}

void Battle::writeEvent(EventKind kind, int32_t attacker, int32_t target, int32_t damage,
                        const Vector& position, bool armourPiercing) {
    const int32_t later = random.getInt(0, StepTicks - 1);
    lastTick = std::max(lastTick, tick + later);
    flight.events.push_back({kind, lastTick, attacker, target, damage, armourPiercing, position});
}

double Battle::draw(double from, double to) {
    return from + (to - from) * static_cast<double>(random.getFloat());
}

bool Battle::areEnemies(int32_t a, int32_t b) const {
    return mission.planes[a].coalition != mission.planes[b].coalition;
}

const StandInFigures& Battle::typeOf(int32_t index) const {
    return aircraftType(mission.planes[index].aircraft);
}

} // namespace standin
