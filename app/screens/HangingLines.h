#pragma once

#include <vector>

#include "engine/core/String.h"

namespace zel {
class Widget;
}

/// Adds a text to the lines of a list, wrapped to that row's width with a hanging indent. Without a
/// row, or a font in it, the text is one line.
void addHangingLines(std::vector<zel::String>& lines, const zel::Widget* row,
                     const zel::String& text);
