#pragma once

#include "tools/datacheck/Records.h"

namespace datacheck {

/// What the program could not use in a squadron's files: the name, unknown types, tokens that only
/// pilot files have, and months in which the squadron is there and has nothing to fly.
void checkSquadron(const Record& squadron, Faults& faults);

/// Reports a type that the career doesn't know, with the nearest that it does, and a skin's name
/// that would break the mission.
void checkPlane(const Record& record, const Entry& entry, Faults& faults);

} // namespace datacheck
