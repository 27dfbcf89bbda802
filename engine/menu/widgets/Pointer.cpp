#include "engine/menu/widgets/Pointer.h"

#include "engine/window/Mouse.h"
#include "engine/window/Window.h"

namespace zel {

Pointer Pointer::read() {
    constexpr int32_t Far = 1 << 20;
    Pointer pointer{Mouse::getX(), Mouse::getY(), Mouse::isButtonDown(MenuButton),
                    Mouse::wasTapped(MenuButton, -Far, -Far, 2 * Far, 2 * Far)};
    // The place known last is the one at which it left the window.
    if (!Window::hasMouseFocus() && !pointer.isDown)
        pointer.x = pointer.y = -Far;
    return pointer;
}

} // namespace zel
