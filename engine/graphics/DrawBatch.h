#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/graphics/Rect.h"

namespace zel {

/// A vertex as it is sent to the graphics card: window pixels, texture coordinates, colour.
struct Vertex {
    float x, y;
    float u, v;
    uint8_t red, green, blue, alpha;
};
static_assert(sizeof(Vertex) == 20);

/// What all corners of one draw call have in common.
struct DrawKey {
    uint32_t texture = 0; // its number on the canvas; 0 is plain white
    uint32_t blend = 0;   // a Blend of the canvas
    int32_t clipX = 0, clipY = 0, clipWidth = 0, clipHeight = 0; // window pixels
};
bool operator==(const DrawKey& a, const DrawKey& b);
inline bool operator!=(const DrawKey& a, const DrawKey& b) { return !(a == b); }

/// The drawing of one frame: runs of rectangles, four corners each, that share a key.
///
/// A rectangle joins an earlier run of its key if it touches nothing that was drawn since. So a
/// screen of buttons, each with its text on it, makes two runs instead of two a button, and looks
/// the same.
class DrawBatch {
public:
    struct Run {
        DrawKey key;
        std::vector<Vertex> vertices;
        std::vector<Rect> bounds; // what it covers, in pieces
    };

    void clear() { used = 0; }
    bool empty() const { return used == 0; }
    /// The list to which the corners of something within `bounds` (window pixels) must be appended.
    std::vector<Vertex>& add(const DrawKey& key, const Rect& bounds);

    /// Whether anything of that texture is drawn.
    bool shows(uint32_t texture) const;
    size_t size() const { return used; } // runs
    const Run& operator[](size_t index) const { return runs[index]; }
    /// Whether both draw the same.
    bool operator==(const DrawBatch& other) const;

private:
    Run& newRun(const DrawKey& key);

    std::vector<Run> runs; // those after `used` only keep their memory
    size_t used = 0;
};

} // namespace zel
