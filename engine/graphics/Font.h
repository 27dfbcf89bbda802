#pragma once

#include <vector>

#include "engine/graphics/FontDescription.h"

namespace zel {

class Image;

/// A bitmap font. Texts are bytes of the code page of TextEncoding.h, and a byte is its character's
/// code.
///
/// Layout of a line: the pen starts at 0; before each character but the first it moves by
/// kerning(previous, code) and by charOffset; the glyph's picture goes to pen + xOffset, line top +
/// yOffset; then the pen moves by xAdvance. Characters that the font lacks are skipped as if they
/// weren't there. width() computes the same.
class Font {
public:
    /// Reads the description `name` (".fnt" is added to a name without an ending), its pages in the
    /// same folder, and the metrics file of the same name with the ending "cfg". On error: the font
    /// is invalid, and a log line says why.
    explicit Font(const String& name);
    /// A font without pages, for measuring.
    Font(const String& name, FontDescription description);
    virtual ~Font() = default;

    bool isValid() const { return valid; }
    const String& getName() const { return name; }
    const FontDescription& getDescription() const { return description; }

    int32_t lineHeight() const;                       // pixels, at least 1
    int32_t base() const { return description.base; } // pixels from a line's top to its baseline
    int32_t charOffset() const { return description.charOffset; } // pixels
    /// Null for a code that the font lacks.
    const Glyph* glyph(uint32_t code) const;
    const Glyph* glyph(char character) const { return glyph(uint32_t(uint8_t(character))); }
    /// Distance to add between two characters; 0 for most.
    int32_t kerning(uint32_t first, uint32_t second) const;
    int32_t kerning(char first, char second) const {
        return kerning(uint32_t(uint8_t(first)), uint32_t(uint8_t(second)));
    }
    /// How far the pen moves for a line, in pixels; 0 for the empty text.
    int32_t width(std::string_view line) const;
    /// Null if the page doesn't exist or couldn't be loaded.
    const Image* pageImage(int32_t page) const;

private:
    bool read(const String& fileName);
    void loadPages(const String& fileName);

    String name;
    FontDescription description;
    std::vector<const Image*> pageImages;
    bool valid = false;
};

/// The fonts by name.
class FontHandler {
public:
    /// The font of that name, read at first use. It lives until clear(). On error: null, and once a
    /// warning, "Invalid font NAME".
    static const Font* getFont(const String& name);
    /// Deletes all fonts and forgets failed ones.
    static void clear();
};

} // namespace zel
