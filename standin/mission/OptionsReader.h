#pragma once

#include "standin/mission/Mission.h"
#include "standin/mission/MissionText.h"

namespace standin {

/// Reads the mission's first block: date, time, landscape, wind and the countries' coalitions. On
/// error: false with the first finding.
[[nodiscard]] bool readOptions(const MissionBlock& block, Mission& mission,
                               tools::Finding& finding);

} // namespace standin
