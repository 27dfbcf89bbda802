#pragma once

#include "tools/datacheck/DataText.h"

namespace datacheck {

/// Checks Missions/GenericTemplate.Mission for what the mission generator and the simulator need.
void checkTemplate(const zel::String& dataFolder, Findings& findings);

} // namespace datacheck
