#pragma once

#include <cstdint>
#include <vector>

#include "standin/Vector.h"

namespace standin {

constexpr int32_t TicksPerSecond = 50; // a tick is the log's unit of time
constexpr int32_t Nobody = -1;         // the ground, fire, strain

/// Kinds of the events of a flight.
enum class EventKind {
    Hit, // a bullet arrives
    Damage,
    Destroyed, // a plane is lost, or a pilot killed
    TakeOff,
    Landed,   // also a wreck that comes to rest
    Position, // the human's plane, at intervals
};

/// Everything that happens in a flight. MissionLog decides which of it the simulator logs.
///
/// Objects are numbered: the planes in the mission's order, then their pilots' bodies in the same
/// order, then the guns on the ground.
struct Event {
    EventKind kind;
    int32_t tick;     // since the mission's start
    int32_t attacker; // Nobody for none
    int32_t target;   // an object too
    int32_t damage;   // thousandths; 1000 is the end
    bool armourPiercing;
    Vector position; // of the target
};

/// The state of a plane and its pilot at the end of the flight.
struct PlaneEnd {
    bool pilotAlive;
    bool destroyed;
    bool onGround;
    int32_t rounds; // left
    Vector position;
};

/// A gun on the ground.
struct Gun {
    int32_t country; // code
    Vector position;
};

/// A whole flight, as the log's writer needs it.
struct FlightCourse {
    std::vector<Event> events;    // by rising ticks
    std::vector<PlaneEnd> planes; // in the mission's order
    std::vector<Gun> guns;
    int32_t endTick = 0; // the human ends his sortie
};

} // namespace standin
