#pragma once

#include <cstdint>
#include <vector>

#include "engine/window/Platform.h"

namespace zel {

/// The keyboard as screens see it. Every query first takes the events that wait.
class Keyboard {
public:
    static bool isKeyDown(int32_t symbol);
    /// The last key pressed; earlier ones of a burst are lost, and a second call gives symbol 0.
    static Key getKey();
    /// All keys pressed since the last call, oldest first, at most the last 64. What was pressed
    /// during a fade isn't among them. It leaves getKey() alone.
    static std::vector<Key> takeKeys();
    static void clearKeys();
};

} // namespace zel
