#include "standin/fight/DogfightMoves.h"

#include <algorithm>

namespace standin {

namespace {

constexpr double Gravity = 9.81;    // m/s^2
constexpr double TooNear = 35;      // minimum distance in metres from a target
constexpr double Idle = 0.3;        // throttle
constexpr double Slip = -0.6;       // likewise, with the rudder as a brake
constexpr double FriendsApart = 40; // metres that friends keep
constexpr double HomeHeight = 350;  // metres above the ground on the way home
constexpr double Approach = 2500;   // metres from the field where the descent begins
constexpr double DrawnTurn = 2.2;   // m/s^2 lost in the tightest turn

/// The horizontal direction to the right of a nose.
Vector rightOf(const Vector& direction) { return normalized({-direction.z, 0, direction.x}); }

} // namespace

void DogfightMoves::fly(int32_t index) {
    Fighter& fighter = fighters[index];
    if (fighter.task == FighterTask::Down)
        return;
    if (fighter.task == FighterTask::Ground) {
        roll(index);
        return;
    }
    steer(index);
    const double load = turnNose(index);
    changeSpeed(index, load);
    fighter.position = fighter.position + fighter.direction * (fighter.speed * StepSeconds);
    touchGround(index);
}

/// On the ground: waits, rolls and takes off.
void DogfightMoves::roll(int32_t index) {
    Fighter& fighter = fighters[index];
    fighter.untilTask -= StepSeconds;
    if (fighter.untilTask > 0)
        return;
    fighter.speed += 2 * StepSeconds;
    fighter.position = fighter.position + fighter.direction * (fighter.speed * StepSeconds);
    if (fighter.speed < topSpeed(index) * 0.55)
        return;
    fighter.task = FighterTask::Climb;
    writeEvent(EventKind::TakeOff, Nobody, index, 0, fighter.position);
}

void DogfightMoves::steer(int32_t index) {
    Fighter& fighter = fighters[index];
    fighter.throttle = 1;
    const Vector ahead = normalized({fighter.direction.x, 0, fighter.direction.z});
    const Vector side = rightOf(fighter.direction) * fighter.side;
    switch (fighter.task) {
    case FighterTask::Formation:
        fighter.wanted = ahead;
        break;
    case FighterTask::Climb:
        fighter.wanted = normalized(ahead + Vector{0, typeOf(index).climb / topSpeed(index), 0});
        if (fighter.position.y > ground + 300)
            fighter.task = FighterTask::Formation;
        return; // it can't climb any steeper
    case FighterTask::Attack:
        steerAttack(index);
        break;
    case FighterTask::Evade:
        fighter.wanted = normalized(side + ahead * 0.2 + Vector{0, -0.2, 0});
        fighter.throttle = fighter.speed > fightingSpeed(index) ? Idle : 1;
        fighter.untilTask -= StepSeconds;
        if (fighter.untilTask <= 0)
            fighter.task = FighterTask::Formation; // the next decision chooses a new task
        break;
    case FighterTask::Home:
        steerHome(fighter);
        break;
    case FighterTask::Fall:
        fighter.wanted = fighter.gliding ? normalized(ahead + Vector{0, -0.18, 0})
                                         : normalized(side * 0.7 + Vector{0, -1, 0});
        return; // a falling plane avoids nothing
    case FighterTask::Ground:
    case FighterTask::Down:
        return;
    }
    keepClear(index);
}

/// Towards the target, or ahead of it when near; never through it.
void DogfightMoves::steerAttack(int32_t index) {
    Fighter& fighter = fighters[index];
    const int32_t area = std::max(mission.planes[index].area, 0);
    const AttackArea& hunt = mission.areas[area];
    Vector aim = hunt.position;
    if (fighter.target != Nobody) {
        const Fighter& target = fighters[fighter.target];
        const double away = distance(target.position, fighter.position);
        const Vector towards = normalized(target.position - fighter.position);
        const Vector speeds = fighter.direction * fighter.speed - target.direction * target.speed;
        const double closing = dot(speeds, towards);
        if (away < TooNear + std::max(0.0, closing) * 1.2 && closing > 6 &&
            angleBetween(fighter.direction, towards) < 0.5) {
            breakOff(index, draw(1, 2.2));
            return;
        }
        // A fast plane must slow down near the enemy, or it overshoots in wider circles.
        if (away < 350 && closing > 3)
            fighter.throttle = Slip;
        else if (away < 600 && fighter.speed > fightingSpeed(index))
            fighter.throttle = Idle;
        const bool inside = groundDistance(target.position, hunt.position) < hunt.radius;
        if (inside || groundDistance(fighter.position, hunt.position) < hunt.radius)
            aim = target.position +
                  target.direction * (target.speed * std::min(away / BulletSpeed, 1.0));
    }
    fighter.wanted = normalized(aim - fighter.position);
    fighter.wanted.y = std::clamp(fighter.wanted.y, -0.85, 0.75);
    fighter.wanted = normalized(fighter.wanted);
}

/// Low over the lines, then down to the field.
void DogfightMoves::steerHome(Fighter& fighter) const {
    const Vector way = fighter.home - fighter.position;
    const double away = groundDistance(fighter.home, fighter.position);
    const double height =
        ground + (away > Approach ? HomeHeight : away / Approach * HomeHeight - 4);
    const double slope = std::clamp((height - fighter.position.y) / 400, -0.3, 0.2);
    const Vector level = normalized({way.x, 0, way.z});
    fighter.wanted = normalized(level + Vector{0, slope, 0});
}

/// Turns to one side for that long.
void DogfightMoves::breakOff(int32_t index, double seconds) {
    Fighter& fighter = fighters[index];
    fighter.task = FighterTask::Evade;
    fighter.side = random.getInt(0, 1) == 0 ? 1 : -1;
    fighter.untilTask = seconds;
    fighter.burst = 0;
}

/// Keeps clear of friends, and of the ground as far as the pilot is careful.
void DogfightMoves::keepClear(int32_t index) {
    Fighter& fighter = fighters[index];
    for (int32_t i = 0; i < count(); ++i) {
        const Vector gap = fighter.position - fighters[i].position;
        if (i != index && !areEnemies(index, i) && length(gap) < FriendsApart)
            fighter.wanted = normalized(fighter.wanted + normalized(gap));
    }
    if (fighter.task == FighterTask::Home &&
        groundDistance(fighter.position, fighter.home) < Approach)
        return;
    // Twice the height lost in pulling out of the dive, since the plane may have to roll first.
    const double turning = 2 * Pi / typeOf(index).turn * skill(index).turn;
    const double sinking = std::max(0.0, -fighter.direction.y);
    const double loss = fighter.speed / turning * (1 - std::sqrt(1 - sinking * sinking));
    const double margin = (40 + 2 * loss + sinking * fighter.speed) * skill(index).caution;
    if (fighter.position.y - ground > margin)
        return;
    // Pulls straight out of a dive: a turn that starts upside down would continue downwards.
    if (sinking > 0.15)
        fighter.wanted = {fighter.direction.x, 0, fighter.direction.z};
    fighter.wanted.y = std::max(fighter.wanted.y, 0.3);
    fighter.wanted = normalized(fighter.wanted);
}

/// Turns the nose as far as plane and pilot can in a step. Returns the load: the share used of the
/// tightest turn, 0 to 1.
double DogfightMoves::turnNose(int32_t index) {
    Fighter& fighter = fighters[index];
    const double slow = topSpeed(index) * 0.2 + 15;
    if (fighter.speed < slow && fighter.task != FighterTask::Fall)
        fighter.wanted.y = fighter.position.y < ground + 60 ? 0.01 : -0.1; // or it stalls
    const Vector wanted = normalized(fighter.wanted);
    const double angle = angleBetween(fighter.direction, wanted);
    const double bySpeed = std::min(1.0, fighter.speed / (topSpeed(index) * 0.2 + 20));
    const double share = fighter.task == FighterTask::Fall ? 0.5 : skill(index).turn;
    const double most = 2 * Pi / typeOf(index).turn * bySpeed * share * StepSeconds;
    const double turned = std::min(angle, most);
    if (turned < 1e-6)
        return 0;
    Vector across = wanted - fighter.direction * dot(wanted, fighter.direction);
    if (length(across) < 1e-6)
        across = rightOf(fighter.direction) * fighter.side; // the aim is straight behind
    fighter.direction = normalized(fighter.direction * rounded(std::cos(turned)) +
                                   normalized(across) * rounded(std::sin(turned)));
    return turned / most;
}

/// The engine against drag, height and turns. Its pull is what gives the type's climb at 0.7 of its
/// top speed.
void DogfightMoves::changeSpeed(int32_t index, double load) {
    Fighter& fighter = fighters[index];
    const double top = topSpeed(index);
    const double pull = Gravity * typeOf(index).climb / (0.51 * 0.7 * top);
    const double ratio = fighter.speed / top;
    double change = pull * ((fighter.destroyed ? 0.25 : fighter.throttle) - ratio * ratio);
    change -= Gravity * fighter.direction.y;
    change -= DrawnTurn * load * load;
    fighter.speed = std::clamp(fighter.speed + change * StepSeconds, top * 0.4, top * 1.6);
}

void DogfightMoves::touchGround(int32_t index) {
    Fighter& fighter = fighters[index];
    if (fighter.position.y > ground)
        return;
    fighter.position.y = ground;
    if (fighter.task != FighterTask::Home ||
        groundDistance(fighter.position, fighter.home) > Approach) {
        crash(index);
        return;
    }
    fighter.task = FighterTask::Down;
    writeEvent(EventKind::Landed, Nobody, index, 0, fighter.position);
    if (index == human())
        endHumanAfter(draw(5, 18));
}

} // namespace standin
