#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "engine/core/String.h"

namespace zel {

/// One character of a font, as in the file. Distances in pixels.
struct Glyph {
    uint32_t id;   // character code
    uint16_t x, y; // of its picture on the page, from the top left
    uint16_t width, height;
    int16_t xOffset;  // from the pen to the picture's left edge
    int16_t yOffset;  // from the line's top to the picture's upper edge
    int16_t xAdvance; // how far the pen moves on
    uint8_t page;     // index of the page
    uint8_t channel;  // bits of the page's channels that have it
};
static_assert(sizeof(Glyph) == 20);

/// The fixed fields of the info block: what the font was made from. Nothing depends on them.
struct FontInfo {
    int16_t size = 0; // pixels
    uint8_t bits = 0; // smooth, unicode, italic, bold, fixedHeight
    uint8_t charset = 0;
    uint16_t stretch = 0; // percent
    uint8_t antialias = 0;
    uint8_t padding[4] = {}; // up, right, down, left
    uint8_t spacing[2] = {}; // horizontal, vertical
    uint8_t outline = 0;
};

/// A font description in the binary form of the BMFont tool, version 3.
struct FontDescription {
    FontInfo info;
    String fontName;
    uint16_t lineHeight = 0;         // from one line to the next
    uint16_t base = 0;               // from a line's top to its baseline
    uint16_t scaleW = 0, scaleH = 0; // size of a page
    uint16_t pages = 0;
    uint8_t common[5] = {}; // flags, then alpha, red, green, blue channel
    std::vector<String> pageNames;
    std::vector<Glyph> glyphs;       // in the order of the file
    std::vector<int32_t> glyphIndex; // into glyphs, by character code; -1 for none
    std::vector<int16_t> kerning;    // 65536, or none: first code x glyphs + second code
    int32_t charOffset = 0;          // extra distance between characters
};

/// Reads a description. False if it doesn't begin as one of version 3; a file that is cut off or
/// wrong further on is read as far as possible.
[[nodiscard]] bool parseFontDescription(std::string_view content, FontDescription& font);
/// Applies the corrections of a metrics file to the font. A correction without its numbers, or of a
/// character that the font lacks, changes nothing and is logged with the file's name; lines that
/// begin with any other word are comments.
void applyFontMetrics(std::string_view text, const String& fileName, FontDescription& font);

} // namespace zel
