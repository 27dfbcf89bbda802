#pragma once

#include <vector>

#include "app/screens/Switch.h"

/// Switches "item1" to "item12" for at most twelve planes of the list, from that index on.
std::vector<Switch> planeSwitches(int32_t first);
