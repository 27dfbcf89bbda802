#pragma once

namespace zel {

/// A rectangle, y down from the upper left corner. In sources a width or height below 0 mirrors.
struct Rect {
    float x = 0;
    float y = 0;
    float width = 0;
    float height = 0;

    float right() const { return x + width; }
    float bottom() const { return y + height; }
};

inline bool operator==(const Rect& a, const Rect& b) {
    return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}
inline bool operator!=(const Rect& a, const Rect& b) { return !(a == b); }

} // namespace zel
