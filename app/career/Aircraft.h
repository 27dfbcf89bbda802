#pragma once

#include <optional>
#include <vector>

#include "app/aircraft/AircraftTable.h"
#include "engine/core/String.h"

namespace zel {
class Random;
}

// The fighter types of app/aircraft/AircraftTable.h as the career uses them, by the simulator's own
// names in lower case. A type's identifier is also the preferences key that says whether the player
// has it. Indices are those of the table's rows.

/// Fills the two lists below; called once at the start, and harmless a second time.
void initPlaneNames();
const std::vector<zel::String>& planeIdentifiers();
const std::vector<zel::String>& planeDisplayNames(); // in step with planeIdentifiers()

/// The display name; an unknown identifier comes back unchanged.
zel::String planeDisplayName(const zel::String& identifier);
/// Index in planeIdentifiers() of the last entry of that name; -1 if there is none.
int32_t planeIndex(std::string_view identifier);
/// The shape of a type by its identifier or by its name in the simulator's log, in any case; none
/// for a type without a row.
std::optional<Shape> planeShape(std::string_view machine);
/// Whether the type of that index flies for the Allies. REQUIRES: a valid index.
bool isAlliedPlane(int32_t index);

/// Draws what a side flies in that month: one draw, whatever the row.
zel::String planeForSide(bool allied, int32_t year, int32_t month, zel::Random& random);
/// Draws what a nation flies: 200 tries in that month, then further back, ten months at most. If
/// nothing is found, the last type drawn.
zel::String chooseNationPlane(int32_t nation, int32_t year, int32_t month, zel::Random& random);
/// The same with the running program's draws (setPlaneRandom). The day doesn't matter.
zel::String planeForSide(bool allied, int32_t year, int32_t month, int32_t day);
zel::String chooseNationPlane(int32_t nation, int32_t year, int32_t month, int32_t day);
/// The identifiers that chooseNationPlane can give in that month without going further back.
std::vector<const char*> planesDrawable(int32_t nation, int32_t year, int32_t month);

/// The simulator's PayloadId of a type: guns and nothing else.
zel::String payloadId(const zel::String& plane);

/// The running program's draws: those of the current mission generator while there is one, which
/// sets and clears them; null means a source of the program's own.
void setPlaneRandom(zel::Random* random);
