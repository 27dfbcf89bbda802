#include "app/screens/Preferences.h"

#include "engine/core/Registry.h"
#include "engine/sound/SoundHandler.h"
#include "engine/window/Window.h"

namespace {

// Of the language tables.
constexpr int32_t SoundTexts = 1404;
constexpr int32_t FullScreenTexts = 1406;

} // namespace

namespace preferences {

Switch sound() { return {"sound", {}, "soundOn", "1", SoundTexts}; }

Switch fullScreen() { return {"fullScreen", {}, "fullScreen", "0", FullScreenTexts}; }

void applySound() { zel::SoundHandler::getInstance().setEnabled(sound().isOn()); }

void applyFullScreen() {
    if (zel::Window* window = zel::Window::current())
        window->setFullscreen(fullScreen().isOn());
}

void noteFullScreen(bool isFullscreen) {
    zel::Registry::set(fullScreen().key, isFullscreen ? "1" : "0");
}

} // namespace preferences
