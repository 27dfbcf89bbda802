#pragma once

#include <vector>

#include "engine/core/String.h"

namespace zel {

enum class ConditionResult { Holds, Fails, Unknown };

/// Whether a display of that real size counts as a tablet's: both lengths from 768 to 1024.
bool isTabletSize(int32_t width, int32_t height);
/// The "@" word of a conditional line against the window's size, or against the design's if there
/// is no window.
ConditionResult resolveCondition(const std::vector<String>& words);
/// The line behind the condition: the words 2 to 7, joined by blanks. Further ones are lost, and
/// so are the quotes.
String conditionalLine(const std::vector<String>& words);

} // namespace zel
