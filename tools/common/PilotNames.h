#pragma once

#include <cstddef>

namespace tools {

/// The longest name of a pilot that leaves room for an ace's score, in characters: the simulator
/// cuts names after 31, and the "/" and the victories that follow an ace's name take up to four.
constexpr size_t LongestAceName = 27;

} // namespace tools
