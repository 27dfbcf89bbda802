#pragma once

#include "tools/datacheck/DataText.h"

namespace datacheck {

/// The eight lists of first and last names below Names: missing ones, odd lines, names twice, and
/// pairs of which the simulator would cut the name.
void checkNames(const zel::String& dataFolder, Faults& faults);

/// Missions/GenericTemplate.Mission: what the mission generator and the simulator need of it.
void checkTemplate(const zel::String& dataFolder, Faults& faults);

} // namespace datacheck
