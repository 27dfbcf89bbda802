#pragma once

#include <cstdint>
#include <string_view>

namespace standin {

/// A single-seat fighter as the simulator knows it, with the few figures by which it fights here.
struct AircraftType {
    const char* id;   // of its script and its model
    const char* type; // the log's TYPE
    int32_t speed;    // level, km/h
    double climb;     // best, m/s
    double turn;      // a full circle at fighting speed, s
    int32_t guns;
    int32_t rounds; // for all guns
};

/// Index of the type with that id, whatever its case; -1 if there is none.
int32_t findAircraft(std::string_view id);
/// REQUIRES: an index that findAircraft gave.
const AircraftType& aircraftType(int32_t index);

} // namespace standin
