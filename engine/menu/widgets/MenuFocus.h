#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/String.h"

namespace zel {

class Menu;
class Widget;
struct Key;

/// The keyboard's way through a menu. Tab and the arrow keys move a focus from widget to widget,
/// Enter and Space hit the one that has it, Escape hits "menuBack". Where there is nothing of the
/// kind they hit the only widget besides "menuBack" that can be pressed. All of it ends in
/// Menu::hitWidget, as the mouse does.
class MenuFocus {
public:
    /// Answers keys in the order in which they were typed.
    void takeKeys(Menu& menu, const std::vector<Key>& keys);
    /// Takes the focus from a widget that can't have it any more, and from any when the pointer
    /// has moved.
    void follow(Menu& menu);
    /// Gives it to a widget that wants typed characters, when that is hit.
    void takeHit(Menu& menu, Widget& widget);
    void clear(Menu& menu);
    const String& getName() const { return name; }

private:
    void takeKey(Menu& menu, const Key& key);
    void takeHitKey(Menu& menu, const Key& key);
    void give(Menu& menu, const Widget& widget);

    String name; // of the widget; empty for none
    int32_t pointerX = 0, pointerY = 0;
};

/// Where the keyboard goes from a widget: to the next in reading order, or the nearest one in a
/// direction. Null if there is nowhere to go; from null it goes to the first or last one.
Widget* nextInOrder(const Menu& menu, const Widget* from, bool backwards);
Widget* nextInDirection(const Menu& menu, const Widget* from, int32_t stepX, int32_t stepY);

} // namespace zel
