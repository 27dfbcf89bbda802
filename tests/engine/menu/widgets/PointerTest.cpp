#include "engine/menu/widgets/Pointer.h"

#include <gtest/gtest.h>

#include "tests/engine/menu/ScreenDriver.h"
#include "tests/engine/window/Events.h"

namespace {

int32_t drainsToCome = -1; // until the late events arrive; below 0 for none
std::vector<SDL_Event> lateEvents;

} // namespace

// Replaces SDL's own function, which does the same except for the late events.
extern "C" int SDL_PollEvent(SDL_Event* event) {
    SDL_PumpEvents();
    if (SDL_PeepEvents(event, 1, SDL_GETEVENT, SDL_ALLEVENTS) == 1)
        return 1;
    if (drainsToCome-- == 0)
        for (SDL_Event& late : lateEvents)
            SDL_PushEvent(&late);
    return 0;
}

// A touch screen reports motion and press together, on Windows the motion last. Whatever the frame
// is doing just then, the pointer must not be seen at its old position with the button down.
TEST(Pointer, HitsWithAPressThatComesWithItsMotion) {
    ScreenDriver driver({{"A", scriptOf({{"b", "button", {200, 100, 100, 40}}}) +
                                   "setlocalstring hit none\nonhit b:\nsetlocalstring hit b\n"}});
    ASSERT_TRUE(driver.untilIdle("A"));
    for (int32_t drains = 0; drains < 24; ++drains) {
        driver.menu().setLocalString("hit", "none");
        driver.moveTo(10, 10);
        driver.step();
        lateEvents = {motionEvent(250, 120), buttonEvent(SDL_BUTTON_LEFT, true)};
        drainsToCome = drains / 2;
        if (drains % 2 == 1)
            lateEvents = {lateEvents[1], buttonEvent(SDL_BUTTON_LEFT, false), lateEvents[0]};
        for (int32_t frame = 0; frame < 8; ++frame)
            driver.step();
        ASSERT_LT(drainsToCome, 0) << "they have arrived";
        driver.button(false);
        driver.step();
        EXPECT_EQ(driver.menu().getLocalString("hit"), zel::String("b")) << drains;
    }
}
