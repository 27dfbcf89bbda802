#include "engine/window/Keyboard.h"

#include <cstddef>
#include <utility>

namespace zel {

bool Keyboard::isKeyDown(int32_t symbol) {
    const Platform& platform = Platform::drained();
    return symbol >= 0 && symbol < Platform::KeyCount && platform.keyDown[symbol] != 0;
}

KeyPress Keyboard::getKey() {
    Platform& platform = Platform::drained();
    const int32_t symbol = std::exchange(platform.lastKey, 0);
    const auto unicode = static_cast<uint16_t>(std::exchange(platform.lastUnicode, int16_t(0)));
    return Platform::makeKey(symbol, unicode);
}

std::vector<KeyPress> Keyboard::takeKeys() {
    return std::exchange(Platform::drained().typedKeys, {});
}

void Keyboard::clearKeys() {
    Platform& platform = Platform::drained();
    platform.lastKey = 0;
    platform.lastUnicode = 0;
    platform.typedKeys.clear();
}

} // namespace zel
