#include <gtest/gtest.h>

#include "engine/window/Mouse.h"
#include "engine/window/Platform.h"
#include "engine/window/Window.h"
#include "tests/engine/window/Events.h"

using namespace zel;

TEST(MouseScreenTest, RoundsToTheNearestPixelOfTheDesign) {
    ASSERT_TRUE(Window::create(800, 600, 32));
    Window::current()->setSimulatedResolution(1024, 768, true); // 1.28 pixels to a window's one
    SDL_EventState(SDL_MOUSEMOTION, SDL_IGNORE);                // of the display's own pointer
    for (const auto& [inWindow, inDesign] :
         {std::pair(0, 0), {1, 1}, {2, 3}, {101, 129}, {102, 131}}) {
        Platform::getInstance().handleEvent(motionEvent(inWindow, inWindow));
        EXPECT_EQ(Mouse::getX(), inDesign) << inWindow;
        EXPECT_EQ(Mouse::getY(), inDesign) << inWindow;
    }
    SDL_EventState(SDL_MOUSEMOTION, SDL_ENABLE);
    Window::destroy();
}
