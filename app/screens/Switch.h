#pragma once

#include "app/screens/ScreenWording.h"
#include "engine/core/String.h"

namespace zel {
class Menu;
class Widget;
} // namespace zel

/// A key of the preferences that a widget shows and turns.
struct Switch {
    zel::String widget;
    zel::String key;
    const SwitchForms* texts = nullptr;
    zel::String name = {};     // of what it turns, for texts that name it; English
    const char* atFirst = "1"; // as long as the player has not turned it

    bool isOn() const;
    /// Puts its text into the widget. A kind whose name ends so is exchanged for its other one, if
    /// the theme has it, so that the plate's lamp follows.
    void show(zel::Menu& menu) const;
    /// Stores the other position at once, and resets the widget, so that it can be pressed again.
    void turn(zel::Widget& pressed) const;
};
