#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/String.h"

// The country under a flight, for sketches and maps: towns, the coast, and where the front ran at
// the time. All are put on the simulator's two maps by longitude and latitude, and may be some
// kilometres off: docs/history.md has the sources and the figures.

/// Metres to the north and to the east, on one of the simulator's maps.
struct MapPoint {
    float x = 0;
    float z = 0;
};

struct Town {
    const char* name; // in English
    MapPoint place;
};

/// The towns of that map.
std::vector<Town> townsOf(bool onChannelMap);
/// The coast from the south-west on; the sea is to its north-west.
std::vector<MapPoint> coastOf(bool onChannelMap);
/// The front of that day (yyyymmdd) from the sea to the south, with the Allies to its west and
/// south. Before the first known day, the front of that day; after the last, the front of the last.
std::vector<MapPoint> frontOf(int32_t date, bool onChannelMap);
/// Up to this distance something counts as near a town, in metres.
constexpr float NearTown = 15000;
/// The nearest town within that many metres; null for none.
const char* townNear(const MapPoint& point, bool onChannelMap, float metres);
