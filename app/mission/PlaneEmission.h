#pragma once

#include <cstdint>
#include <vector>

class Database;
class MissionGenerator;
struct PlannedPlane;

/// A level for each plane, 1 to 4, and 0 for the first, the player's. Everybody is given as many
/// more missions as it takes for one to reach the level that makes the fight worth flying.
std::vector<int32_t> planeLevels(const std::vector<PlannedPlane>& plan);

/// Inserts the plan's planes into the generator's lines before that line, the player's last in the
/// file, raises `maxIndex` and adds each group's first plane to `attackObjects`.
void emitPlanes(MissionGenerator& generator, const Database& career, int32_t insertLine);
