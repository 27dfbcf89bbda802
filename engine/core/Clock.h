#pragma once

#include <cstdint>

namespace zel {

/// A moment of the player's own clock, in his time zone.
struct WallTime {
    int32_t year, month, day; // month 1 to 12, day from 1
    int32_t hour, minute, second;
};

/// The one place from which the program takes the time. A test replaces the source and thereby
/// holds time still. Only the progress line of a terminal (tools/career/Progress.cpp) asks the
/// system itself: it has to move on while the clock is held still.
///
/// Milliseconds since the program started.
uint32_t ticks();
WallTime wallTime();

/// Replaces the source of ticks(); null puts the system's clock back.
void setTickSource(uint32_t (*source)());
/// Replaces the source of wallTime(); null puts the system's clock back.
void setWallTimeSource(WallTime (*source)());

} // namespace zel
