#include "engine/core/Clock.h"

#include "engine/core/System.h"

namespace zel {

namespace {

uint32_t (*tickSource)() = nullptr;
WallTime (*wallTimeSource)() = nullptr;

} // namespace

uint32_t ticks() { return tickSource != nullptr ? tickSource() : system::ticks(); }

WallTime wallTime() { return wallTimeSource != nullptr ? wallTimeSource() : system::wallTime(); }

void wait(uint32_t milliseconds) {
    if (tickSource == nullptr)
        system::sleepMilliseconds(milliseconds);
}

void setTickSource(uint32_t (*source)()) { tickSource = source; }
void setWallTimeSource(WallTime (*source)()) { wallTimeSource = source; }

} // namespace zel
