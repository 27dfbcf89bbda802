#pragma once

#include <vector>

#include "engine/core/String.h"

namespace zel {

/// The result of a condition; Unknown for one that the language lacks.
enum class ConditionResult { Holds, Fails, Unknown };

/// Whether a display of that real size counts as a tablet: both lengths from 768 to 1024 pixels.
bool isTabletSize(int32_t width, int32_t height);
/// Evaluates the "@" word of a conditional line against the window's size, or the design's without
/// a window.
ConditionResult resolveCondition(const std::vector<String>& words);
/// The line after the condition: the words 2 to 7, joined by blanks. Further words and the quotes
/// are lost.
String conditionalLine(const std::vector<String>& words);

} // namespace zel
