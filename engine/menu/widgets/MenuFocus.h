#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/String.h"

namespace zel {

class Menu;
class ScrollingArea;
class Widget;
struct KeyPress;

/// The keyboard on a menu. Tab, the arrow keys, Home and End, and in a scrolling area page up and
/// page down, move a focus from widget to widget; a row that is cut off scrolls into view. An area
/// that is a stop has the focus itself, and they scroll it; up and down move on where it can't
/// scroll further. Where no widget can take the focus they scroll the menu's first area instead.
/// Enter and Space hit the widget with the focus, Escape hits "menuBack". Without either they hit
/// the only other widget that can be pressed, if there is exactly one. All hits go through
/// Menu::hitWidget, as the mouse's do.
class MenuFocus {
public:
    /// Handles keys in the order in which they were typed.
    void takeKeys(Menu& menu, const std::vector<KeyPress>& keys);
    /// Clears the focus if its widget can't have it any longer, or if the pointer has moved.
    void follow(Menu& menu);
    /// Gives the focus to the widget of that name; false if there is none that can have it.
    bool set(Menu& menu, const String& target);
    /// Gives the focus to a widget that takes typed characters when it is hit.
    void takeHit(Menu& menu, Widget& widget);
    void clear(Menu& menu);
    /// Name of the widget with the focus; empty for none.
    const String& getName() const { return name; }

private:
    void takeKey(Menu& menu, const KeyPress& key);
    void takeHitKey(Menu& menu, const KeyPress& key);
    void give(Menu& menu, const Widget& widget);

    String name;                        // of the widget; empty for none
    int32_t pointerX = 0, pointerY = 0; // design pixels, when the focus was given
};

} // namespace zel
