#include "engine/window/Timer.h"

#include <gtest/gtest.h>

#include "tests/engine/window/ManualClock.h"

namespace zel {

namespace {

TEST(Timer, RunsStopsAndGoesOn) {
    ManualClock clock;
    Timer timer;
    clock.advance(1500);
    EXPECT_EQ(timer.getTicks(), 1500U) << "it runs from its construction";
    timer.stop();
    clock.advance(1000);
    EXPECT_DOUBLE_EQ(timer.getSeconds(), 1.5);
    timer.stop();
    EXPECT_EQ(timer.getTicks(), 1500U) << "stopped twice is stopped";
    timer.start();
    clock.advance(250);
    timer.start();
    EXPECT_EQ(timer.getTicks(), 1750U) << "a running timer just goes on";
    timer.reset();
    clock.advance(3);
    EXPECT_EQ(timer.getTicks(), 3U);
}

TEST(Timer, LimitsFrames) {
    Timer timer;
    timer.regulate(50);
    const uint32_t before = ticks();
    for (int32_t frame = 0; frame < 10; ++frame)
        timer.regulate(50);
    const uint32_t passed = ticks() - before;
    EXPECT_GE(passed, 150U) << "ten frames of 20 ms";
    EXPECT_GT(timer.getFps(), 0);
    timer.regulate(0);
    EXPECT_LT(ticks() - before - passed, 100U) << "no limit, no wait";
}

} // namespace

} // namespace zel
