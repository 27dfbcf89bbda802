#pragma once

#include <vector>

#include "app/screens/Switch.h"

/// A switch for each plane of a side, in the order of the list, as "item1", "item2" and so on.
std::vector<Switch> planeSwitches(bool allied);
