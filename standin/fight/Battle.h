#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/Random.h"
#include "standin/fight/FlightCourse.h"
#include "standin/fight/Skill.h"
#include "standin/mission/AircraftTypes.h"
#include "standin/mission/Mission.h"

namespace standin {

constexpr double StepSeconds = 0.1;
constexpr int32_t StepTicks = 5;    // the same in ticks
constexpr double BulletSpeed = 650; // m/s
constexpr int32_t FirstPositionTick = 58;

/// What must happen to the human in the fight.
struct FightOptions {
    bool killHuman = false;  // he dies in any case
    bool woundHuman = false; // he is hurt and lives
};

/// The state of a fight. DogfightFire, DogfightMoves and Dogfight derive from it, each from the one
/// before.
class Battle {
protected:
    Battle(const Mission& mission, const FightOptions& options, zel::Random& random);

    enum class FighterTask { Ground, Climb, Formation, Attack, Evade, Home, Fall, Down };

    struct Fighter {
        FighterTask task = FighterTask::Formation;
        Vector position;
        Vector direction;    // of both the nose and the flight, length 1
        double speed = 0;    // m/s
        double throttle = 1; // fraction of full power
        Vector wanted;       // where the nose should point
        Vector home;         // on the ground, or where his flight ends
        int32_t target = Nobody;
        int32_t lastAttacker = Nobody;
        double untilDecision = 0; // seconds
        double untilTask = 0;     // seconds left of an evasion or a wait
        double burst = 0;         // seconds that the trigger is held; below 0: the pause after it
        double partRound = 0;     // of the next bullet
        int32_t side = 1;         // 1 turns right, -1 left
        int32_t rounds = 0;       // left
        int32_t damage = 0;       // thousandths
        int32_t wounds = 0;       // thousandths
        bool pilotAlive = true;
        bool destroyed = false;
        bool gliding = false; // falls under control
    };

    int32_t count() const { return static_cast<int32_t>(fighters.size()); }
    bool isFlying(const Fighter& fighter) const;
    /// The human's sortie ends that long after this step, unless its end is set already.
    void endHumanAfter(double seconds);
    void writeEvent(EventKind kind, int32_t attacker, int32_t target, int32_t damage,
                    const Vector& position, bool armourPiercing = false);
    double draw(double from, double to);
    bool chance(double probability) { return draw(0, 1) < probability; }
    bool areEnemies(int32_t a, int32_t b) const;
    const StandInFigures& typeOf(int32_t index) const;
    const Skill& skill(int32_t index) const { return skillOf(mission.planes[index].level); }
    // Object numbers, see Event.
    int32_t bodyOf(int32_t index) const { return index + count(); }
    int32_t lastGun() const { return 2 * count() + static_cast<int32_t>(flight.guns.size()) - 1; }
    double topSpeed(int32_t index) const { return typeOf(index).speed / 3.6; }
    /// The speed at which it turns best, m/s. It differs less between types than the top speed.
    double fightingSpeed(int32_t index) const { return topSpeed(index) * 0.2 + 31; }
    int32_t human() const { return mission.human; }

    const Mission& mission;
    const FightOptions options;
    zel::Random& random;
    std::vector<Fighter> fighters; // in the mission's order
    FlightCourse flight;
    int32_t tick = 0;     // at the start of the step
    double time = 0;      // the same in seconds
    int32_t lastTick = 0; // of the last event
    int32_t nextPositionTick = FirstPositionTick;
    double ground = 0;     // its height, everywhere
    double fightLimit = 0; // seconds until all planes go home
    double meddleTime = 0; // when the requested wound or death is due
    bool fightOver = false;
    bool humanLands = true; // otherwise his flight ends in the air
    double attackTime = 0;  // seconds until the order to attack
    int32_t gunHits = 0;    // left for the gun on the ground
};

} // namespace standin
