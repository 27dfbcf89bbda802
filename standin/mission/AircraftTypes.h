#pragma once

#include <cstdint>
#include <string_view>

#include "app/aircraft/AircraftTable.h"

namespace standin {

// The types that the stand-in flies, and how they fight. They are the rows of the aircraft table,
// the only thing that it shares with the program that writes the missions.

/// Index of the type with that id, whatever its case; -1 if there is none, and the plane is
/// refused.
int32_t findAircraft(std::string_view id);
/// REQUIRES: an index that findAircraft gave.
const StandInFigures& aircraftType(int32_t index);

} // namespace standin
