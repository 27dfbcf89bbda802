#pragma once

#include "engine/menu/style/Theme.h"

namespace zel {

/// All themes by name, and the one that definitions go to.
class ThemeHandler {
public:
    /// Built at the first use; lives until release().
    static ThemeHandler& getInstance();
    /// Drops every theme. No menu may be alive.
    static void release();

    /// Starts the theme over, empty, and makes it the one that definitions go to.
    void defineTheme(const String& name);
    /// The theme that definitions go to; null, and a log line, if there is none yet.
    Theme* currentTheme();
    /// Empties the current theme, which keeps its name.
    void clearTheme();
    /// Null for an unknown name. The address holds until release().
    const Theme* find(const String& name) const;

    /// Puts a font at a place of the theme's list; -1 stands for its end.
    void defineFont(const String& fontName, int32_t index);

private:
    std::map<String, Theme> themes; // by name, lowered
    Theme* current = nullptr;
};

} // namespace zel
