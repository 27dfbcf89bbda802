#pragma once

#include <string_view>
#include <vector>

#include "engine/core/String.h"

/// The checks of wingtally-datacheck: what the program would quietly leave out or misread in its
/// data files, delivered or the player's own.
namespace datacheck {

struct Fault {
    zel::String file;
    int32_t line; // as an editor counts, from 1; 1 also for what concerns the whole file
    zel::String what;
};
using Faults = std::vector<Fault>;

struct TextLine {
    int32_t number; // as an editor counts
    zel::String text;
};

/// The file's lines as the program reads them, empty ones left out. A file that is no text
/// (missing, empty, of zero bytes, UTF-16, anything else that isn't lines of characters) is one
/// fault and has no lines. Tabs and characters outside ASCII are faults, one a line at most; the
/// line stays.
std::vector<TextLine> readText(const zel::String& file, Faults& faults);

/// Whether all characters are printable ASCII.
bool isPlain(std::string_view text);
bool isDigits(std::string_view text);

/// Whether the text is eight digits that name a day from July 1914 to December 1918.
bool isWarDate(std::string_view text);

} // namespace datacheck
