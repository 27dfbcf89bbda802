#pragma once

#include "tools/datacheck/Records.h"

namespace datacheck {

/// What the program could not use in a pilot's files: his name, postings to squadrons that aren't
/// there, levels out of range, unknown types, lines that would never apply.
void checkPilot(const Record& pilot, const std::vector<Record>& squadrons, Faults& faults);

/// The most characters of a pilot's name: the simulator cuts names at 31, and up to four go to the
/// "/" and the victories that stand behind an ace's.
constexpr int32_t LongestPilotName = 27;

/// What is wrong with a name for the simulator, or with a part of one; empty if nothing is.
zel::String whyNoName(std::string_view name);

} // namespace datacheck
