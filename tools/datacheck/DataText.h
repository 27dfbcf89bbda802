#pragma once

#include <string_view>
#include <vector>

#include "engine/core/String.h"
#include "tools/common/Finding.h"

/// The checks of wingtally-datacheck: what the game would silently leave out or misread in its data
/// files, whether delivered or the player's own.
namespace datacheck {

using tools::Findings;

/// A line of a data file.
struct TextLine {
    int32_t number; // as an editor counts, from 1
    zel::String text;
};

/// The lines of a file as the game reads them: empty ones are left out. A file that isn't text
/// (missing, empty, with zero bytes, UTF-16 or anything else that isn't lines of characters) is a
/// finding and has no lines. A line with a tab or a non-ASCII character is a finding too, and is
/// kept.
std::vector<TextLine> readText(const zel::String& file, Findings& findings);

/// Whether all characters are printable ASCII.
bool isPlain(std::string_view text);
bool isDigits(std::string_view text);

/// Whether the text is eight digits, yyyymmdd, that name a day from July 1914 to December 1918.
bool isWarDate(std::string_view text);

} // namespace datacheck
