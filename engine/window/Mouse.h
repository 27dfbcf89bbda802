#pragma once

#include <cstdint>

namespace zel {

/// The mouse at one moment: all values come from the same drain of the event queue.
struct MouseState {
    int32_t x = 0, y = 0;   // design pixels
    bool isDown = false;    // the given button
    bool wasTapped = false; // see Mouse::wasTapped(), anywhere
    int32_t wheel = 0;      // steps turned since the last query, above 0 for up
};

/// The mouse for screens: positions in design pixels, buttons 1 (left), 2 (right), 3 (middle), 4
/// and 5 (wheel up and down). Every query first drains the event queue, so a press may arrive
/// between two queries: use read() for values that belong together.
class Mouse {
public:
    /// Everything at once. It resets the wheel's steps, as takeWheel() does.
    static MouseState read(int32_t button);
    static int32_t getX();
    static int32_t getY();
    static bool isButtonDown(int32_t button); // false for buttons out of range
    /// Whether it was released after a press since the last call that returned true.
    static bool isButtonHit(int32_t button);
    /// Forgets presses, hits and taps of all buttons, so that nothing else handles them.
    static void consumeHits();
    /// Motion since the last call, in window pixels.
    static int32_t getMoveX();
    static int32_t getMoveY();
    /// Steps of the wheel since the last call, above 0 for up.
    static int32_t takeWheel();

    /// Whether the button was pressed and released within the rectangle so fast that no frame saw
    /// it down. True in the first frame in which menus can handle it, until consumeHits().
    static bool wasTapped(int32_t button, int32_t x, int32_t y, int32_t width, int32_t height);
};

} // namespace zel
