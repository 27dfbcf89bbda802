#pragma once

#include <cstdint>

namespace zel {

/// The mouse at one moment: the events that waited have been taken once, for all of it.
struct MouseState {
    int32_t x = 0, y = 0;   // design pixels
    bool isDown = false;    // the button asked for
    bool wasTapped = false; // see Mouse::wasTapped(), anywhere
    int32_t wheel = 0;      // steps turned since the last query, above 0 for up
};

/// The mouse as screens see it: positions in design pixels, buttons 1 (left), 2 (right), 3
/// (middle), 4 and 5 (wheel up and down). Every query first takes the events that wait. So a press
/// may arrive between two queries: use read() where values must belong together.
class Mouse {
public:
    /// Everything at once. It takes the wheel's steps, as takeWheel() does.
    static MouseState read(int32_t button);
    static int32_t getX();
    static int32_t getY();
    static bool isButtonDown(int32_t button);
    /// Whether it was released after a press since the last call that said so.
    static bool isButtonHit(int32_t button);
    /// Forgets what all buttons did, so that nobody else answers it.
    static void consumeHits();
    /// Motion since the last call, in window pixels.
    static int32_t getMoveX();
    static int32_t getMoveY();
    /// Steps that the wheel was turned since the last call; up is above 0.
    static int32_t takeWheel();

    /// Whether the button was pressed and released within the rectangle so fast that no frame saw
    /// it down. It is true for the frame in which the menus first can see it, until consumeHits().
    static bool wasTapped(int32_t button, int32_t x, int32_t y, int32_t width, int32_t height);
};

} // namespace zel
