#include "engine/menu/style/ThemeHandler.h"

#include <memory>

#include "engine/core/Log.h"
#include "engine/core/Shutdown.h"

namespace zel {

namespace {

constexpr int32_t MostFonts = 256;

std::unique_ptr<ThemeHandler>& themeHandler() {
    static std::unique_ptr<ThemeHandler> handler;
    return handler;
}

} // namespace

ThemeHandler& ThemeHandler::getInstance() {
    if (!themeHandler()) {
        themeHandler() = std::make_unique<ThemeHandler>();
        setShutdownStep(ShutdownStep::Themes, release);
    }
    return *themeHandler();
}

void ThemeHandler::release() { themeHandler().reset(); }

void ThemeHandler::defineTheme(const String& name) {
    current = &themes[name.toLower()];
    *current = Theme();
    current->name = name;
    log(String("Added theme ") + name, "ThemeHandler", LogInfo);
}

Theme* ThemeHandler::currentTheme() {
    if (current == nullptr)
        log("definition without theme", "ThemeHandler", LogError);
    return current;
}

void ThemeHandler::clearTheme() {
    if (Theme* theme = currentTheme()) {
        String name = theme->name;
        *theme = Theme();
        theme->name = std::move(name);
    }
}

const Theme* ThemeHandler::find(const String& name) const {
    const auto found = themes.find(name.toLower());
    return found != themes.end() ? &found->second : nullptr;
}

void ThemeHandler::defineFont(const String& fontName, int32_t index) {
    Theme* theme = currentTheme();
    if (theme == nullptr)
        return;
    const auto count = static_cast<int32_t>(theme->fonts.size());
    const int32_t slot = index < 0 ? count : index;
    if (slot >= MostFonts) {
        log(String("theme font index out of range: ") + slot, "ThemeHandler", LogWarning);
        return;
    }
    if (slot >= count)
        theme->fonts.resize(slot + 1);
    theme->fonts[slot] = fontName;
}

} // namespace zel
