#include "engine/core/Keyboard.h"

#include <cstddef>
#include <utility>

namespace zel {

namespace {

Platform& drained() {
    Platform& platform = Platform::getInstance();
    platform.handleEvents();
    return platform;
}

} // namespace

bool Keyboard::isKeyDown(int32_t symbol) {
    const Platform& platform = drained();
    return symbol >= 0 && symbol < Platform::KeyCount &&
           platform.keyDown[static_cast<size_t>(symbol)] != 0;
}

Key Keyboard::getKey() {
    Platform& platform = drained();
    Key key;
    key.symbol = std::exchange(platform.lastKey, 0);
    key.unicode = static_cast<uint16_t>(std::exchange(platform.lastUnicode, int16_t(0)));
    key.character = key.unicode < 256 ? static_cast<char>(key.unicode) : '\0';
    key.printable = static_cast<uint32_t>(key.unicode) - 32 < 224;
    return key;
}

std::vector<Key> Keyboard::takeKeys() { return std::exchange(drained().typedKeys, {}); }

void Keyboard::clearKeys() {
    Platform& platform = drained();
    platform.lastKey = 0;
    platform.lastUnicode = 0;
    platform.typedKeys.clear();
}

} // namespace zel
