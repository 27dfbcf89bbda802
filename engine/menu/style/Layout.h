#pragma once

#include <array>
#include <map>

#include "engine/menu/script/MenuWords.h"

namespace zel {

/// A font as scripts name it: by its name or, if that one doesn't load, by its index in the theme's
/// list.
struct FontChoice {
    String name;
    int32_t index = -1; // -1: none given
    bool isGiven() const { return !name.empty() || index >= 0; }
};

/// An element's distance from its rest position, in design pixels, when it begins to slide in or
/// has slid out.
struct Scroll {
    int32_t x = 0, y = 0;
    float time = 0.0F; // seconds; without effect: the slide takes as long as the fade
};

/// A rectangle on the screen, in design pixels.
struct PixelRect {
    int32_t x = 0, y = 0, width = 0, height = 0;
};

/// A layout's definition of one widget or text area. The theme fills in what it leaves open.
struct ElementDefinition {
    String name;
    String kind = "widget"; // key of the theme; "textinput" and "scrollingarea" are also classes
    PixelRect rect;         // x and y relative to the origin
    Scroll scrollIn, scrollOut;
    String text;
    int32_t textNumber = 0; // of a text from the language table; 0 for any other
    String transition;
    int32_t alignment = 0; // bits; 0: none of its own
    int32_t origin = AlignLeft | AlignTop;
    int32_t handle = AlignLeft | AlignTop;
    std::array<String, LookCount> images;
    FontChoice font;

    /// The rectangle at rest: its position counts from the origin's point of the design to the
    /// handle's point of the element.
    PixelRect restingRect() const;
};

/// The elements of a screen and their rectangles, by name.
struct Layout {
    String name;
    std::map<String, ElementDefinition> widgets;
    std::map<String, ElementDefinition> textAreas;
    FontChoice font; // of elements that have none of their own
};

} // namespace zel
