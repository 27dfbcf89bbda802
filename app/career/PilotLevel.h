#pragma once

#include <cstdint>

/// 1 (novice) to 4 (ace): how the simulator flies a pilot, and his class in unseen fights. Skill
/// counts from 0 to 10; what is outside counts as the nearest of these.
int32_t pilotLevel(int32_t skill, int32_t shotdowns, int32_t missions);
