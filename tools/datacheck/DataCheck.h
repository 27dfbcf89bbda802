#pragma once

#include "tools/datacheck/DataText.h"

namespace datacheck {

/// The data folder meant by what the user wrote: the folder itself, or Data inside it. Empty if
/// neither holds squadrons or names.
zel::String findDataFolder(const zel::String& folder);

/// All faults of a data folder, in the order of files and lines.
Faults checkData(const zel::String& dataFolder);

/// A table, a line for each nation and month: the squadrons that are there, and the shares of them
/// that have one and every type which the career draws for the nation in that month.
zel::String coverageTable(const zel::String& dataFolder);

} // namespace datacheck
