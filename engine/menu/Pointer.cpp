#include "engine/menu/Pointer.h"

#include "engine/core/Mouse.h"

namespace zel {

Pointer Pointer::read() {
    constexpr int32_t Far = 1 << 20;
    return {Mouse::getX(), Mouse::getY(), Mouse::isButtonDown(MenuButton),
            Mouse::wasTapped(MenuButton, -Far, -Far, 2 * Far, 2 * Far)};
}

} // namespace zel
