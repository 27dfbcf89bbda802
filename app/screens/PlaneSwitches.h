#pragma once

#include <vector>

#include "app/screens/Switch.h"

/// How many switches a page has room for.
constexpr int32_t PlanesPerSheet = 12;

/// The number of sheets that a side's planes need, at least 1.
int32_t planeSheets(bool allied);
/// The switches of a sheet (from 1 on) for the planes of a side, in the order of the list, as
/// "item1" to "item12".
std::vector<Switch> planeSwitches(bool allied, int32_t sheet);
