#pragma once

#include <cstdint>

namespace zel {

/// The mouse at one moment of a frame. A menu reads it once for all its widgets, so that position,
/// button and wheel belong together. A pointer that has left the window is far away from all of
/// them, unless the button is held.
struct Pointer {
    int32_t x = 0, y = 0;   // design pixels
    bool isDown = false;    // the left button
    bool hasTapped = false; // it was pressed and released between two frames, anywhere
    int32_t wheel = 0;      // steps turned since the last frame, above 0 for up

    /// Resets the wheel's steps.
    static Pointer read();
};

constexpr int32_t MenuButton = 1; // the mouse button of menus

} // namespace zel
