#pragma once

#include <cstdint>

namespace zel {

/// A stopwatch on the engine's clock. It runs from its construction.
class Timer {
public:
    Timer() { reset(); }

    /// Restarts from 0, running.
    void reset();
    /// Resumes from the value at which it was stopped. No effect on a running timer.
    void start();
    /// Freezes the value.
    void stop();

    uint32_t getTicks() const; // milliseconds
    double getSeconds() const { return getTicks() / 1000.0; }
    bool isStopped() const { return paused; }

    /// A frame limiter: waits until 1000 / fps milliseconds have passed since the last call. It
    /// doesn't wait for an fps below 1.
    void regulate(int32_t fps);
    /// Frames a second between the last two calls of regulate(); initially 0.
    float getFps() const { return fps; }

private:
    uint32_t startTicks = 0;  // milliseconds of the clock
    uint32_t pausedTicks = 0; // milliseconds that passed before startTicks
    bool paused = false;

    bool started = false; // regulate() has run
    uint32_t lastTicks = 0;
    int32_t delay = 10; // milliseconds that regulate() waits
    float fps = 0;
};

} // namespace zel
