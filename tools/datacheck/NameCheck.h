#pragma once

#include <string_view>

#include "tools/datacheck/DataText.h"

namespace datacheck {

/// A finding about what the simulator can't read in a name or a part of one. Its message is empty
/// if nothing is wrong. REQUIRES: the name is not empty.
tools::Finding checkName(std::string_view name, const zel::String& file, int32_t line);

/// Checks the eight lists of first and last names in Names: missing files, names that come twice,
/// and pairs that the simulator would cut.
void checkNameLists(const zel::String& dataFolder, Findings& findings);

} // namespace datacheck
