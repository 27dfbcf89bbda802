#pragma once

#include <cstdint>

#include "engine/core/Clock.h"

/// Controls the engine's clock during its lifetime. Time only advances when the test adds some, and
/// by a millisecond every thousand readings, so that waiting code finishes.
class ManualClock {
public:
    ManualClock() {
        now = 1000;
        readings = 0;
        zel::setTickSource(read);
    }
    ~ManualClock() { zel::setTickSource(nullptr); }
    ManualClock(const ManualClock&) = delete;
    ManualClock& operator=(const ManualClock&) = delete;

    void advance(uint32_t milliseconds) { now += milliseconds; }
    static uint32_t ticks() { return now; }

private:
    static uint32_t read() {
        if (++readings % 1000 == 0)
            ++now;
        return now;
    }

    inline static uint32_t now = 0;
    inline static uint32_t readings = 0;
};
