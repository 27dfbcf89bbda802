#pragma once

#include <cstdint>

#include "app/career/PlannedPlane.h"
#include "engine/core/String.h"

class Database;
class MissionGenerator;

namespace zel {
class Random;
}

/// Fills the generator's plan, grouped by side, and its season. With the player, his plane is the
/// first; without, he is not in the plan. On error (no squadron of a side, no way to bring the
/// player in): a log line at level 1 and an empty plan.
void planMission(MissionGenerator& generator, Database& career, bool withPlayer);
/// One attempt at a plan, the German group first. It may or may not hold the player.
void selectPlanes(MissionGenerator& generator, Database& career, bool withPlayer);
/// "su", "wi" or "au"; in two half months one draw decides.
zel::String drawSeason(zel::Random& random, int32_t month, int32_t day);
