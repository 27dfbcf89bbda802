#pragma once

#include <array>
#include <map>

#include "engine/menu/script/MenuWords.h"

namespace zel {

/// A font as data names it: by its name and, should that one not load, by its place in the theme's
/// list.
struct FontChoice {
    String name;
    int32_t index = -1; // -1: no place given
    bool isGiven() const { return !name.empty() || index >= 0; }
};

/// How far an element stands from its place at the beginning of its way in or the end of its way
/// out, in design pixels.
struct Scroll {
    int32_t x = 0, y = 0;
    float time = 0.0F; // seconds; the fade's own time is what counts
};

/// A place on the screen, in design pixels.
struct PixelRect {
    int32_t x = 0, y = 0, width = 0, height = 0;
};

/// What a layout says of one widget or text area. What it leaves open the theme fills in.
struct ElementDefinition {
    String name;
    String kind = "widget"; // the theme's key; "textinput", "scrollingarea" are classes too
    PixelRect place;        // x and y relative to the origin
    Scroll scrollIn, scrollOut;
    String text;
    String transition;
    int32_t alignment = 0; // bits; 0: none of its own
    int32_t origin = AlignLeft | AlignTop;
    int32_t handle = AlignLeft | AlignTop;
    std::array<String, LookCount> images;
    FontChoice font;

    /// Where it rests on the design: its position counted from the origin's point of the design
    /// to the handle's point of the element.
    PixelRect resting() const;
};

/// Where the elements of a screen lie, by name.
struct Layout {
    String name;
    std::map<String, ElementDefinition> widgets;
    std::map<String, ElementDefinition> textAreas;
    FontChoice font; // of elements that have none of their own
};

} // namespace zel
