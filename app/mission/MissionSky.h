#pragma once

#include <cstdint>

#include "engine/core/String.h"

class EntireFile;

/// The hour, sky and wind of a mission file.
struct MissionSky {
    int32_t hour = 0; // 0 to 23
    int32_t minute = 0;
    bool isClear = true;
    int32_t windFrom = 0;  // degrees
    int32_t windSpeed = 0; // metres a second, near the ground
};

/// Reads the options of a mission. Values that they lack keep their defaults above.
MissionSky skyOf(const EntireFile& mission);
/// "At 9:05 the sky is clear and the air is calm.", in the language in use.
zel::String skyText(const MissionSky& sky);
