#pragma once

#include "standin/mission/Mission.h"
#include "standin/mission/MissionText.h"

namespace standin {

/// Adds the plane of a checked block to the mission. REQUIRES: the mission's countries are known.
/// On error: false with the first finding.
[[nodiscard]] bool readPlane(const MissionBlock& block, Mission& mission, tools::Finding& finding);

} // namespace standin
