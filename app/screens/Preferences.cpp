#include "app/screens/Preferences.h"

#include "engine/core/Registry.h"
#include "engine/sound/SoundHandler.h"
#include "engine/window/Window.h"

namespace preferences {

Switch sound() { return {"sound", "soundOn", &wording::Sound}; }

Switch fullScreen() { return {"fullScreen", "fullScreen", &wording::FullScreen, {}, "0"}; }

void applySound() { zel::SoundHandler::getInstance().setEnabled(sound().isOn()); }

void applyFullScreen() {
    if (zel::Window* window = zel::Window::current())
        window->setFullscreen(fullScreen().isOn());
}

void noteFullScreen(bool isFullscreen) {
    zel::Registry::set(fullScreen().key, isFullscreen ? "1" : "0");
}

} // namespace preferences
