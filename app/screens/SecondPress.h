#pragma once

#include "engine/core/Clock.h"

/// Players press twice. A screen whose "Quit" is where the screen before had another plate takes no
/// notice of it in the first half second.
class SecondPress {
public:
    /// The screen has been entered.
    void begin() { enteredAt = zel::ticks(); }
    /// Whether a press may still belong to the screen before.
    bool isDue() const { return zel::ticks() - enteredAt < Milliseconds; }

private:
    static constexpr uint32_t Milliseconds = 500;
    uint32_t enteredAt = 0; // on the engine's clock
};
