#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/Random.h"
#include "standin/mission/AircraftTypes.h"
#include "standin/mission/Mission.h"

namespace standin {

constexpr int32_t TicksPerSecond = 50;
constexpr double StepSeconds = 0.1;
constexpr double BulletSpeed = 650; // m/s
constexpr int32_t Nobody = -1;      // the ground, fire, strain
constexpr int32_t FirstPositionTick = 58;

enum class EventKind {
    Hit, // a bullet arrives
    Damage,
    Destroyed, // a plane lost, or a man killed
    TakeOff,
    Landed,   // also a wreck that comes to rest
    Position, // the human's plane, now and then
};

/// What happens in a flight, to everybody; what of it the simulator tells is MissionLog's.
///
/// Objects are numbered: the planes in the mission's order, then their pilots' bodies in the same
/// order, then the guns on the ground.
struct Event {
    EventKind kind;
    int32_t tick;
    int32_t attacker; // Nobody for none
    int32_t target;
    int32_t damage; // thousandths; 1000 is the end
    bool armourPiercing;
    Vector position; // of the target
};

/// How a plane and its pilot stood at the flight's end.
struct PlaneEnd {
    bool pilotAlive;
    bool destroyed;
    bool onGround;
    int32_t rounds; // left
    Vector position;
};

struct Gun {
    int32_t country;
    Vector position;
};

struct Flight {
    std::vector<Event> events;    // by rising ticks
    std::vector<PlaneEnd> planes; // in the mission's order
    std::vector<Gun> guns;
    int32_t endTick = 0; // the human ends his sortie
};

/// What a pilot of a level can do.
struct Skill {
    double turn;      // share of what his plane can turn
    double cone;      // degrees off the aim at which he opens fire
    double range;     // metres at which he opens fire
    double aim;       // chance of a bullet to hit at 100 m
    double awareness; // chance to notice an attacker at a decision
    double decision;  // seconds between decisions
    double caution;   // share of the height that a dive should keep
};

/// level 1 to 4; 0, the human, flies like 3 but for a sharper look behind him.
const Skill& skillOf(int32_t level);

struct FightOptions {
    bool killHuman = false;  // he dies, somehow
    bool woundHuman = false; // he is hurt and lives
};

/// A fight of all planes of a mission, in steps of a tenth of a second, until the human is down or
/// home. Everybody follows the same few rules and the figures of his type and level; who wins is
/// left to them and to the generator.
class Dogfight {
public:
    Dogfight(const Mission& mission, const FightOptions& options, zel::Random& random);
    Flight run();

private:
    enum class Task { Ground, Climb, Formation, Attack, Evade, Home, Fall, Down };

    struct Fighter {
        Task task = Task::Formation;
        Vector position;
        Vector direction;    // of the nose and of the flight alike, length 1
        double speed = 0;    // m/s
        double throttle = 1; // share of the engine
        Vector wanted;       // where the nose is to point
        Vector home;         // on the ground, or where his flight ends
        int32_t target = Nobody;
        int32_t lastAttacker = Nobody;
        double untilDecision = 0; // seconds
        double untilTask = 0;     // seconds that an evasion or a wait still lasts
        double burst = 0;         // seconds that the trigger is held; below 0: the pause after it
        double partRound = 0;     // of the next bullet
        int32_t side = 1;         // 1 turns right, -1 left
        int32_t rounds = 0;
        int32_t damage = 0; // thousandths
        int32_t wounds = 0; // thousandths
        bool pilotAlive = true;
        bool destroyed = false;
        bool gliding = false; // falls under control
    };

    // Dogfight.cpp: who does what, and when it is over.
    void step();
    void decide(size_t index);
    void chooseTarget(size_t index);
    bool isFighting(const Fighter& fighter) const;
    bool isFlying(const Fighter& fighter) const;
    bool isOver() const;
    void sendHome(size_t index);
    void checkEnd();
    void tellPosition();
    void endHumanAfter(double seconds);
    int32_t threatTo(size_t index) const;

    // DogfightMoves.cpp: how they fly.
    void fly(size_t index);
    void steer(size_t index);
    void steerAttack(size_t index);
    void steerHome(Fighter& fighter) const;
    void breakOff(size_t index, double seconds);
    void keepClear(size_t index);
    double turnNose(size_t index);
    void changeSpeed(size_t index, double load);
    void roll(size_t index);
    void touchGround(size_t index);

    // DogfightFire.cpp: what they do to each other.
    void fire(size_t index);
    void hit(int32_t attacker, size_t target);
    void hurtPilot(int32_t attacker, size_t target, int32_t amount);
    void damagePlane(int32_t attacker, size_t target, int32_t amount);
    void destroy(int32_t attacker, size_t target);
    void loseControl(size_t index);
    void crash(size_t index);
    void hurtInCrash(size_t index, bool soft);
    void collide();
    void ram(size_t other, size_t target);
    void placeGun();
    void fireGun();
    void meddle();
    void woundOrKill(int32_t attacker);
    int32_t nearestEnemy(size_t index) const;

    void tell(EventKind kind, int32_t attacker, int32_t target, int32_t damage,
              const Vector& position, bool armourPiercing = false);
    double draw(double from, double to);
    bool chance(double probability) { return draw(0, 1) < probability; }
    bool areEnemies(size_t a, size_t b) const;
    const StandInFigures& typeOf(size_t index) const;
    const Skill& skill(size_t index) const { return skillOf(mission.planes[index].level); }
    int32_t bodyOf(size_t index) const { return static_cast<int32_t>(index + fighters.size()); }
    double topSpeed(size_t index) const { return typeOf(index).speed / 3.6; }
    /// At which it circles best, m/s. The types differ less in it than in their top speed.
    double fightingSpeed(size_t index) const { return topSpeed(index) * 0.2 + 31; }
    size_t human() const { return static_cast<size_t>(mission.human); }

    const Mission& mission;
    const FightOptions options;
    zel::Random& random;
    std::vector<Fighter> fighters; // in the mission's order
    Flight flight;
    int32_t tick = 0;     // at the step's begin
    double time = 0;      // the same in seconds
    int32_t lastTick = 0; // of the last event
    int32_t nextPositionTick = FirstPositionTick;
    double ground = 0;     // its height, all over
    double fightLimit = 0; // seconds until everybody goes home
    double meddleTime = 0; // when the options' wound or death is due
    bool fightOver = false;
    bool humanLands = true; // else his flight ends in the air
    double attackTime = 0;  // seconds until the order to attack
    int32_t gunHits = 0;    // that the gun on the ground still has in store
};

} // namespace standin
