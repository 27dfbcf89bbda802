#pragma once

#include "engine/graphics/Rect.h"
#include "engine/menu/Layout.h"

namespace zel {

class ScrollingArea;

/// Where an element rests, and where it stands in a frame while its screen comes or goes or while
/// it is scrolled.
struct Placing {
    Place place; // where it rests, in design pixels
    Scroll scrollIn, scrollOut;
    ScrollingArea* area = nullptr; // that it moves with; null for most
    int32_t drawX = 0, drawY = 0;  // in this frame

    /// contentPhase 0 comes, 1 goes; progress 1 is at rest.
    void stand(int32_t contentPhase, float progress);
    /// Its place, moved with its area: what the pointer has to meet.
    Place placeNow() const;
    /// Whether the point lies in the area that shows it; true without one.
    bool isShownAt(int32_t x, int32_t y) const;
};

inline Rect rectOf(const Place& place) {
    return {static_cast<float>(place.x), static_cast<float>(place.y),
            static_cast<float>(place.width), static_cast<float>(place.height)};
}

/// Whether the point lies in the place grown by a margin; the right and lower edges are outside.
inline bool isWithin(const Place& place, int32_t x, int32_t y, int32_t margin = 0) {
    return place.x - margin <= x && x < place.x + place.width + margin && place.y - margin <= y &&
           y < place.y + place.height + margin;
}

} // namespace zel
