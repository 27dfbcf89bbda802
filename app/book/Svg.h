#pragma once

#include <string>
#include <string_view>

#include "engine/core/String.h"

/// A drawing for a web page, piece by piece. Texts are bytes of the code page of TextEncoding.h;
/// the drawing is UTF-8 and self-contained. Places and sizes are in units of the drawing, from its
/// upper left.
class Svg {
public:
    enum class Anchor { Start, Middle, End };

    Svg(float width, float height) : width(width), height(height) {}

    /// style: attributes, as `stroke="#2A1E12"`.
    void line(float x1, float y1, float x2, float y2, std::string_view style);
    void rect(float x, float y, float w, float h, std::string_view style);
    void circle(float x, float y, float radius, std::string_view style);
    /// d: as the attribute, its first point moved to x, y.
    void path(float x, float y, std::string_view d, std::string_view style);
    void text(float x, float y, const zel::String& words, Anchor anchor, std::string_view style);
    /// Begins a line of many points; end it with endLine().
    void beginLine() { points.clear(); }
    void point(float x, float y);
    void endLine(std::string_view style);

    /// The element, with a title and a description for those who don't see it. cssClass: of the
    /// page's template; empty for none.
    std::string element(const zel::String& title, const zel::String& description,
                        std::string_view cssClass = {}) const;
    /// The element as a decoration next to text that says the same, shownWidth page pixels wide.
    std::string ornament(std::string_view cssClass, int32_t shownWidth) const;

private:
    float width, height;
    std::string body;
    std::string points;
};

/// The text in UTF-8, with "&", "<", ">" and quotes as entities.
std::string htmlOf(const zel::String& text);
