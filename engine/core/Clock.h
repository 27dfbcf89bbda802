#pragma once

#include <cstdint>

namespace zel {

/// The time of the player's clock, in the local time zone.
struct WallTime {
    int32_t year, month, day;     // month 1 to 12, day from 1
    int32_t hour, minute, second; // hour 0 to 23
};

/// The only source of time in the program. A test replaces it and so stops the clock. Only code
/// that must go on while it is stopped asks the system directly: the progress line of a terminal
/// (tools/career/Progress.cpp) and the search of the disks (app/mission/SimulatorSearch.cpp). File
/// times come from the system, so code that compares them asks it too (standin/MissionWatch.cpp).
///
/// Milliseconds since the program started.
uint32_t ticks();
WallTime wallTime();
/// Waits. Returns at once if a test has replaced the source of ticks: waiting wouldn't advance it.
void wait(uint32_t milliseconds);

/// Replaces the source of ticks(); null puts the system's clock back.
void setTickSource(uint32_t (*source)());
/// Replaces the source of wallTime(); null puts the system's clock back.
void setWallTimeSource(WallTime (*source)());

} // namespace zel
