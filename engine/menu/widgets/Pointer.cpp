#include "engine/menu/widgets/Pointer.h"

#include "engine/window/Mouse.h"
#include "engine/window/Window.h"

namespace zel {

Pointer Pointer::read() {
    constexpr int32_t Far = 1 << 20;
    const MouseState mouse = Mouse::read(MenuButton);
    Pointer pointer{mouse.x, mouse.y, mouse.isDown, mouse.wasTapped, mouse.wheel};
    // The last known position is the one at which it left the window.
    if (!Window::hasMouseFocus() && !pointer.isDown)
        pointer.x = pointer.y = -Far;
    return pointer;
}

} // namespace zel
