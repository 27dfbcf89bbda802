#pragma once

#include "tools/datacheck/History.h"

namespace datacheck {

/// Reports what the game can't use in a pilot's files: a bad name, postings to squadrons that don't
/// exist, levels out of range, unknown aircraft, lines that would never apply.
void checkPilot(const HistoryRecord& pilot, const std::vector<HistoryRecord>& squadrons,
                Findings& findings);

} // namespace datacheck
