#include "engine/window/Mouse.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/window/Platform.h"
#include "engine/window/Window.h"

namespace zel {

namespace {

int32_t toDesignX(int32_t x) {
    const Window* window = Window::current();
    return window != nullptr ? static_cast<int32_t>(std::lround(window->toDesignX(x))) : x;
}

int32_t toDesignY(int32_t y) {
    const Window* window = Window::current();
    return window != nullptr ? static_cast<int32_t>(std::lround(window->toDesignY(y))) : y;
}

bool isButton(int32_t button) { return button >= 0 && button < Platform::ButtonCount; }

} // namespace

MouseState Mouse::read(int32_t button) {
    Platform& platform = Platform::drained();
    MouseState state;
    state.x = toDesignX(platform.mouseX);
    state.y = toDesignY(platform.mouseY);
    state.isDown = isButton(button) && platform.buttonDown[button] != 0;
    state.wasTapped = std::any_of(platform.visibleTaps.begin(), platform.visibleTaps.end(),
                                  [button](const Tap& tap) { return tap.button == button; });
    state.wheel = std::exchange(platform.wheel, 0);
    return state;
}

int32_t Mouse::getX() { return toDesignX(Platform::drained().mouseX); }
int32_t Mouse::getY() { return toDesignY(Platform::drained().mouseY); }

bool Mouse::isButtonDown(int32_t button) {
    const Platform& platform = Platform::drained();
    return isButton(button) && platform.buttonDown[button] != 0;
}

bool Mouse::isButtonHit(int32_t button) {
    Platform& platform = Platform::drained();
    return isButton(button) && std::exchange(platform.buttonHit[button], 0) != 0;
}

void Mouse::consumeHits() {
    Platform& platform = Platform::drained();
    platform.buttonDown.fill(0);
    platform.buttonHit.fill(0);
    platform.visibleTaps.clear();
    platform.pendingTaps.clear();
    for (Platform::Press& press : platform.presses)
        press.seen = true;
}

int32_t Mouse::getMoveX() { return std::exchange(Platform::drained().mouseMoveX, 0); }
int32_t Mouse::getMoveY() { return std::exchange(Platform::drained().mouseMoveY, 0); }
int32_t Mouse::takeWheel() { return std::exchange(Platform::drained().wheel, 0); }

bool Mouse::wasTapped(int32_t button, int32_t x, int32_t y, int32_t width, int32_t height) {
    const auto isInside = [&](int32_t windowX, int32_t windowY) {
        const int32_t pointX = toDesignX(windowX);
        const int32_t pointY = toDesignY(windowY);
        return x <= pointX && pointX < x + width && y <= pointY && pointY < y + height;
    };
    const auto& taps = Platform::drained().visibleTaps;
    return std::any_of(taps.begin(), taps.end(), [&](const Tap& tap) {
        return tap.button == button && isInside(tap.pressX, tap.pressY) &&
               isInside(tap.releaseX, tap.releaseY);
    });
}

} // namespace zel
