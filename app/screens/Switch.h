#pragma once

#include "app/screens/ScreenWording.h"
#include "engine/core/String.h"

namespace zel {
class Menu;
class Widget;
} // namespace zel

/// A preference that a widget shows and toggles.
struct Switch {
    zel::String widget;
    zel::String key;
    const SwitchForms* texts = nullptr;
    zel::String name = {};     // of the setting, for texts that name it; English
    const char* atFirst = "1"; // until the player toggles it

    /// Its position: the preference, or atFirst until that is set.
    bool isOn() const;
    /// Sets the widget's text. A kind whose name ends in a position changes to the kind for the
    /// other position, if the theme has it, so that the plate's lamp matches.
    void show(zel::Menu& menu) const;
    /// Stores the other position at once and resets the widget, so that it can be pressed again.
    void turn(zel::Widget& pressed) const;
};
