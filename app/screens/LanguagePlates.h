#pragma once

#include <vector>

#include "engine/core/Language.h"

namespace zel {
class Menu;
class Widget;
} // namespace zel

/// The plates "language1" to "language6" of a menu, one for each language, with its own name; that
/// of the language in use is lit. Plates without a language are hidden.
class LanguagePlates {
public:
    /// Reads which languages there are, and sets the plates.
    void show(zel::Menu& menu);
    /// If the widget is one of the plates, its language is chosen: the menu's elements have its
    /// texts at once, and every later screen too. Returns whether it is one.
    bool press(zel::Menu& menu, zel::Widget& widget);

private:
    std::vector<zel::KnownLanguage> languages; // a plate each
};
