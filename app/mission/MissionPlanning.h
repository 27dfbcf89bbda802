#pragma once

#include <cstdint>

#include "engine/core/String.h"

class Database;
class MissionGenerator;

namespace zel {
class Random;
}

/// One plane of a mission's plan.
struct PlannedPlane {
    int32_t pilot = 0; // index of the pilot
    zel::String name;
    int32_t nation = 0; // the pilot's
    int32_t skill = 0;
    int32_t shotdowns = 0;
    int32_t missions = 0;
    int32_t squadron = 0;   // index of the squadron that it flies for
    int32_t pilotFile = -1; // the pilot's; negative for a generated one
    zel::String type;       // aircraft identifier
};

/// Fills the generator's plan, grouped by side, and its season. With the player, his plane is the
/// first; without, he is not in the plan. On error (no squadron of a side, no way to bring the
/// player in): a log line at level 1 and an empty plan.
void planMission(MissionGenerator& generator, Database& career, bool withPlayer);
/// One attempt at a plan, the German group first. It may or may not hold the player.
void selectPlanes(MissionGenerator& generator, Database& career, bool withPlayer);
/// "su", "wi" or "au"; in two half months one draw decides.
zel::String drawSeason(zel::Random& random, int32_t month, int32_t day);
