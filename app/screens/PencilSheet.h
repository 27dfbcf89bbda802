#pragma once

#include <vector>

#include "engine/graphics/Bitmap.h"
#include "engine/graphics/Canvas.h"

namespace zel {
class Font;
struct Glyph;
} // namespace zel

/// A clear picture on which lines, signs and letters are drawn as with a pencil. Places and lengths
/// are pixels of the design, from the upper left; what is beyond the edge is not drawn. An alpha is
/// 0 to 1.
class PencilSheet {
public:
    using Point = zel::Point;
    struct Ink {
        uint8_t red, green, blue; // 0 to 255
    };
    enum class Align { Left, Centre, Right };

    /// detail: picture pixels per design pixel.
    PencilSheet(int32_t width, int32_t height, int32_t detail);

    /// From now on nothing is drawn below that row of pixels.
    void setLowest(int32_t y) { lowest = y * detail; }
    void line(Point from, Point to, float width, const Ink& ink);
    /// drawn: how many pixels of dashes and gaps there are already; it is advanced.
    void dashes(Point from, Point to, const Ink& ink, float& drawn);
    /// Draws an arrow head in the middle of the line.
    void arrow(Point from, Point to, const Ink& ink);
    /// Tints what the outline encloses.
    void fill(const std::vector<Point>& outline, const Ink& ink, float alpha);
    void ring(Point centre, float radius, float width, const Ink& ink);
    void disc(Point centre, float radius, const Ink& ink, float alpha = 0.95F);
    /// base: of the letters, at the left end, the middle or the right end of the text. A null font
    /// writes nothing.
    void write(const zel::Font* font, Point base, std::string_view text, const Ink& ink,
               Align align);

    zel::BitmapData take() { return std::move(picture); }

private:
    void blend(int32_t x, int32_t y, const Ink& ink, float alpha); // pixels of the picture
    void writeLetter(const zel::Glyph& glyph, const zel::Bitmap& page, int32_t left, int32_t top,
                     const Ink& ink);

    int32_t lowest; // pixels of the picture
    int32_t detail;
    float scale; // the same as a factor
    zel::BitmapData picture;
};
