#pragma once

#include <vector>

#include "engine/core/String.h"

namespace zel {
class Widget;
}

/// Adds a text to the lines of a list, broken as wide as that row of it, with its first line
/// hanging out. Without a row, or a font in it, the text is one line.
void addHangingLines(std::vector<zel::String>& lines, const zel::Widget* row,
                     const zel::String& text);
