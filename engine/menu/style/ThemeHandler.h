#pragma once

#include "engine/menu/style/Theme.h"

namespace zel {

/// All themes by name, and the current one, which the definition commands change.
class ThemeHandler {
public:
    /// Built at first use; lives until release().
    static ThemeHandler& getInstance();
    /// Deletes all themes. No menu may be alive.
    static void release();

    /// Begins the theme, or clears the one of that name, and makes it current.
    void defineTheme(const String& name);
    /// The current theme; null, with a log line, without one.
    Theme* currentTheme();
    /// Empties the current theme, which keeps its name.
    void clearTheme();
    /// Null for an unknown name. The address is valid until release().
    const Theme* find(const String& name) const;

    /// Sets the font at an index of the theme's list; -1 means its end. On error, an index above
    /// 255: a log line.
    void defineFont(const String& fontName, int32_t index);

private:
    std::map<String, Theme> themes; // by name, lowered
    Theme* current = nullptr;
};

} // namespace zel
