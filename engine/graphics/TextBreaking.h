#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/core/String.h"

namespace zel {

class Font;

/// The text without carriage returns and zero bytes, and with every tab as a blank: only line feeds
/// end lines. A backslash is a character like any other.
std::string plainText(std::string_view text);

/// Breaks a plain text at its line feeds and, where a line is wider than `width` pixels, at the
/// last blank that fits; a word that is wider by itself is broken within, with at least one
/// character a line. Blanks at a break are dropped. Stops once it has more than `mostLines`.
std::vector<std::string> brokenIntoLines(const Font& font, std::string_view text, int32_t width,
                                         size_t mostLines);

/// The text itself if it is no wider than `width` pixels, otherwise as much of its beginning as
/// fits before "...".
std::string shortenedTo(const Font& font, std::string_view text, int32_t width);

} // namespace zel
