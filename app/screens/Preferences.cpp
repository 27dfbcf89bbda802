#include "app/screens/Preferences.h"

#include "engine/core/Registry.h"
#include "engine/core/Window.h"
#include "engine/sound/SoundHandler.h"

namespace preferences {

Switch sound() { return {"sound", "Sound", "soundOn"}; }

Switch fullScreen() { return {"fullScreen", "Full screen", "fullScreen", "0"}; }

void applySound() { zel::SoundHandler::getInstance().setEnabled(sound().isOn()); }

void applyFullScreen() {
    if (zel::Window* window = zel::Window::current())
        window->setFullscreen(fullScreen().isOn());
}

bool noteWindow() {
    const zel::Window* window = zel::Window::current();
    if (window == nullptr || window->isFullscreen() == fullScreen().isOn())
        return false;
    zel::Registry::set(fullScreen().key, window->isFullscreen() ? "1" : "0");
    return true;
}

} // namespace preferences
