#include "engine/window/Timer.h"

#include <algorithm>

#include "engine/core/Clock.h"
#include "engine/core/System.h"

namespace zel {

void Timer::reset() {
    startTicks = ticks();
    pausedTicks = 0;
    paused = false;
}

void Timer::start() {
    if (!paused)
        return;
    startTicks = ticks();
    paused = false;
}

void Timer::stop() {
    pausedTicks = getTicks();
    paused = true;
}

uint32_t Timer::getTicks() const {
    return paused ? pausedTicks : pausedTicks + (ticks() - startTicks);
}

// The delay approaches the free rest of a frame: half of the old one, half of the right one.
void Timer::regulate(int32_t wantedFps) {
    if (wantedFps < 1)
        return;
    constexpr int32_t Margin = 10; // milliseconds that one wait may differ from the last
    const int32_t period = 1000 / wantedFps;
    const uint32_t now = ticks();
    if (started) {
        const auto passed = static_cast<int32_t>(std::min<uint32_t>(now - lastTicks, 60000));
        const int32_t rest = std::clamp(period - passed, 0, delay + Margin);
        delay = (delay + rest) / 2;
        system::sleepMilliseconds(static_cast<uint32_t>(rest));
        fps = 1000.0F / static_cast<float>(std::max(1, passed + rest));
    }
    started = true;
    lastTicks = ticks();
}

} // namespace zel
