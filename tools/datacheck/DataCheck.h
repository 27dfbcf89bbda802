#pragma once

#include "tools/datacheck/DataText.h"

namespace datacheck {

/// The data folder that the user means: the given folder itself, or Data inside it. Empty if
/// neither has squadrons or names.
zel::String findDataFolder(const zel::String& folder);

/// All findings of a data folder, in the order of files and lines.
Findings checkData(const zel::String& dataFolder);

/// A table with a line for each nation and month: the number of its squadrons, and how many of 100
/// have one and how many have every aircraft that the career draws for the nation in that month.
zel::String coverageTable(const zel::String& dataFolder);

} // namespace datacheck
