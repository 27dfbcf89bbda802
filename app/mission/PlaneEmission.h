#pragma once

#include <cstdint>

class Database;
class MissionGenerator;

/// Inserts the plan's planes into the generator's lines in front of that line, the player's last in
/// the file, raises `maxIndex` and names each group's first plane in `attackObjects`.
void emitPlanes(MissionGenerator& generator, const Database& career, int32_t insertLine);
