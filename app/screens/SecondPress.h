#pragma once

#include "engine/core/Clock.h"

/// Players press twice. Where a press changes what is under the pointer, the second one of the pair
/// mustn't be taken: for half a second after the change a press may still be that one.
class SecondPress {
public:
    /// What is under the pointer has changed.
    void begin() { changedAt = zel::ticks(); }
    /// Whether a press may be the second one of a pair.
    bool isDue() const { return zel::ticks() - changedAt < Milliseconds; }

private:
    static constexpr uint32_t Milliseconds = 500;
    uint32_t changedAt = 0; // on the engine's clock
};
