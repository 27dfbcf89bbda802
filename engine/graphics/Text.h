#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/core/String.h"
#include "engine/graphics/Canvas.h"

namespace zel {

class Font;
struct Glyph;

/// Where lines and the block of lines are in the text's rectangle.
enum class AlignX : uint8_t { Left = 0, Centre = 1, Right = 2 };
enum class AlignY : uint8_t { Top = 0, Centre = 1, Bottom = 2 };

/// How a text is fitted into its rectangle.
enum class TextFlow : uint8_t {
    Wrap, // breaks at blanks, or within too long words; stops below the rectangle
    Line, // one line; a text that is too wide ends in "..."
};

/// A text laid out in a rectangle with a font. It is laid out at the first drawing or query after a
/// change: drawing an unchanged text only sends its glyphs.
///
/// Texts are bytes of the code page of TextEncoding.h. A line feed ends a line. A character that
/// the font lacks is logged once per layout and skipped.
class Text {
public:
    /// The font must outlive the text, or be replaced; null draws nothing.
    void setFont(const Font* font);
    void setText(const String& text);
    void setRect(const Rect& rect); // design pixels; a move alone doesn't lay out again
    void setColor(uint32_t argb) { color = argb; } // multiplied with the glyphs' colours
    void setAlign(AlignX x, AlignY y);
    void setFlow(TextFlow flow);

    const Font* getFont() const { return font; }
    const String& getText() const { return text; }
    const Rect& getRect() const { return rect; }

    /// Draws at the rectangle, moved by `offset` (design pixels). alpha: 0 to 255.
    void draw(Canvas& canvas, Point offset = {0, 0}, int32_t alpha = 255) const;

    int32_t lineCount() const; // lines that fit
    /// The width of the widest line, in design pixels.
    int32_t width() const;
    /// The height of all lines, in design pixels.
    int32_t height() const;
    /// Whether something was cut off, at the end of the line or below the rectangle.
    bool isCut() const;
    /// The lines as they were broken.
    std::vector<String> lines() const;
    /// How often it has been laid out, for tests.
    int32_t layoutCount() const { return layouts; }

    /// Width of a text on one line; 0 without a font.
    static int32_t widthOf(const Font* font, std::string_view text);

private:
    struct BrokenLine {
        std::string text;
        int32_t width;
    };
    /// The glyphs of one page of the font, relative to the rectangle's corner.
    struct GlyphPage {
        int32_t number;
        std::vector<Quad> quads;
    };

    void layOut() const; // unless done
    void breakLines() const;
    void placeGlyphs() const;
    std::vector<Quad>& quadsOf(int32_t page) const;
    /// A glyph of a line whose top is `top`, with the pen at `pen`; both in pixels of the
    /// rectangle.
    static Quad glyphQuad(const Glyph& glyph, int32_t pen, int32_t top);

    const Font* font = nullptr;
    String text;
    Rect rect;
    uint32_t color = 0xFFFFFFFF;
    AlignX alignX = AlignX::Left;
    AlignY alignY = AlignY::Top;
    TextFlow flow = TextFlow::Wrap;

    mutable bool laidOut = false;
    mutable bool cut = false;
    mutable int32_t layouts = 0;
    mutable std::vector<BrokenLine> brokenLines;
    mutable std::vector<GlyphPage> pages;
};

} // namespace zel
