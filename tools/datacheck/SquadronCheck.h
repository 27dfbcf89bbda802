#pragma once

#include "tools/datacheck/History.h"

namespace datacheck {

/// Reports what the game can't use in a squadron's files: a bad name, unknown aircraft, keys that
/// only pilot files have, and months in which the squadron exists but has nothing to fly.
void checkSquadron(const HistoryRecord& squadron, Findings& findings);

/// Reports an aircraft that the career doesn't know, with the nearest one that it does, and the
/// name of a skin that would break the mission.
void checkAircraft(const HistoryRecord& record, const HistoryLine& line, Findings& findings);

} // namespace datacheck
