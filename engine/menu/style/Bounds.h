#pragma once

#include "engine/graphics/Rect.h"
#include "engine/menu/style/Layout.h"

namespace zel {

class ScrollingArea;

/// An element's rectangle at rest, and where it is drawn while its screen fades or its area
/// scrolls.
struct Bounds {
    PixelRect rect; // at rest
    Scroll scrollIn, scrollOut;
    ScrollingArea* area = nullptr; // the area that it moves with; null for most
    int32_t drawX = 0, drawY = 0;  // in this frame, in design pixels

    /// Sets drawX and drawY. contentPhase 0: the screen is entered, 1: it is left; progress 1: at
    /// rest.
    void moveTo(int32_t contentPhase, float progress);
    /// The rectangle moved with its area: where the pointer hits it.
    PixelRect currentRect() const;
    /// The part of it that its area shows; without width or height if there is none.
    PixelRect shownRect() const;
};

inline Rect rectOf(const PixelRect& rect) {
    return {static_cast<float>(rect.x), static_cast<float>(rect.y), static_cast<float>(rect.width),
            static_cast<float>(rect.height)};
}

/// Whether the point is in the rectangle grown by a margin; the right and lower edges are outside.
inline bool isWithin(const PixelRect& rect, int32_t x, int32_t y, int32_t margin = 0) {
    return rect.x - margin <= x && x < rect.x + rect.width + margin && rect.y - margin <= y &&
           y < rect.y + rect.height + margin;
}

} // namespace zel
