#pragma once

#include <cstdint>
#include <vector>

#include "engine/window/Platform.h"

namespace zel {

/// The keyboard for screens. Every query first drains the event queue.
class Keyboard {
public:
    static bool isKeyDown(int32_t symbol); // false for symbols out of range
    /// The last key pressed; earlier ones of a burst are lost, and a second call gives symbol 0.
    static KeyPress getKey();
    /// All keys pressed since the last call, oldest first, at most the last 64. Keys pressed during
    /// a fade are left out. It doesn't affect getKey().
    static std::vector<KeyPress> takeKeys();
    /// Forgets pressed keys; held ones stay held.
    static void clearKeys();
};

} // namespace zel
