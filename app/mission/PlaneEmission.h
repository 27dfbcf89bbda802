#pragma once

#include <cstdint>

class Database;
class MissionGenerator;

/// Inserts the plan's planes into the generator's lines before that line, the player's last in the
/// file, raises `maxIndex` and adds each group's first plane to `attackObjects`.
void emitPlanes(MissionGenerator& generator, const Database& career, int32_t insertLine);
