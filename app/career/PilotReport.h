#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/String.h"

class Database;

/// As much of a name as the simulator's log keeps.
constexpr int32_t LongestLoggedName = 31;

/// One flying object of a mission and what became of it: read from a log, or fought in the
/// abstract. Indices refer to the mission's list of such records.
struct PilotReport {
    zel::String name;                // the plane's name in the log
    zel::String type;                // the object's type
    int32_t human = 0;               // 1 for the player's plane
    int32_t finished = 0;            // 1 when the crew's mission has ended
    int32_t country = 0;             // nation code
    int32_t planeId = -1;            // object id of the plane
    int32_t bodyId = -1;             // object id of the pilot in it
    int32_t spare = -1;              // never read; 1000 in the simulated war
    float damage = 0;                // of the plane; 1.0 is a destroyed one
    float injury = 0;                // of the pilot; 1.0 kills him
    std::vector<int32_t> hitTargets; // records that this one hit, in order, with repeats
    std::vector<int32_t> hitBy;      // records that hit this one, likewise
    int32_t shotDown = 0;            // 1 when the plane was destroyed
    int32_t killCount = 0;           // kills of the pilot himself, in the air
    int32_t flightStatus = 0;        // the last event: 1 landed, 2 taken off
    std::vector<int32_t> kills;      // records credited to this one
    int32_t shotdownBy = -1;         // the enemy credited with this one
    int32_t shotdownByOwn = -1;      // the friend who brought it down
    int32_t dead = 0;                // 1 when the judgement finds the pilot dead
    int32_t injuryPercent = 0;       // 0 to 100
    int32_t pilot = -1;              // index of the career's pilot, -1 for none
    zel::String plannedName;         // his name in the plan
    zel::String plannedType;         // likewise his aircraft; empty in the simulated war
    int32_t skill = -1;              // his figures as planned
    int32_t shotdowns = -1;
    int32_t missions = -1;
};

/// The name in the log; for an object on the ground, what it is, in the language in use.
zel::String reportedName(const PilotReport& report);

/// Carries the victories, the mission and the death of each record with a pilot into the career.
/// True if there was one. isSeen: it is the player's flight, for the career's observer.
bool applyReports(const std::vector<PilotReport>& reports, Database& career, bool isSeen = false);
