#pragma once

#include <cstdint>
#include <vector>

class Database;
class MissionGenerator;
struct PlannedPlane;

/// A level for each plane, 1 to 4, and 0 for the first, the player's. Missions are added for
/// everybody until one of them reaches the level that makes the fight worth flying.
std::vector<int32_t> planeLevels(const std::vector<PlannedPlane>& plan);

/// Inserts the plan's planes into the generator's lines before that line, with the player's plane
/// last in the file. Raises `maxIndex` and adds each group's first plane to `attackObjects`.
void emitPlanes(MissionGenerator& generator, const Database& career, int32_t insertLine);
