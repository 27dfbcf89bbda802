#pragma once

#include <array>
#include <map>
#include <optional>
#include <vector>

#include "engine/menu/style/Layout.h"
#include "engine/menu/style/OverlayOptions.h"

namespace zel {

/// A colour for each look of a widget.
using LookColors = std::array<std::optional<uint32_t>, LookCount>; // ARGB; empty: not given

/// The style of widgets of one kind.
struct WidgetStyle {
    std::array<String, LookCount> images;
    LookColors tints;
    LookColors textColors;
    int32_t textX = 0, textY = 0;     // moves the text, in design pixels
    int32_t borderX = 0, borderY = 0; // margin within which the text stays
    FontChoice font;
    String sound; // WAV file played by a hit
};

/// The style of text areas of one kind.
struct TextAreaStyle {
    FontChoice font;
    std::optional<uint32_t> color; // 0xAARRGGBB; without one the theme's
};

/// An overlay behind or in front of all screens of a theme: the registered one of that name,
/// otherwise one of the image of that name.
struct ThemeOverlay {
    String name; // empty: none
    OverlayOptions options;
};

/// A named style of screens, by kinds of elements.
struct Theme {
    String name;
    std::map<String, WidgetStyle> widgets;     // by kind, lowered
    std::map<String, TextAreaStyle> textAreas; // by kind, lowered
    LookColors textColors;                     // of widgets whose kind has none
    std::optional<uint32_t> textAreaColor;     // 0xAARRGGBB, of kinds that have none
    std::vector<String> fonts;                 // chosen by index
    String backgroundImage, foregroundImage;   // shown without an overlay
    ThemeOverlay backgroundOverlay, foregroundOverlay;

    /// The style of a kind; an empty one if the theme lacks it.
    const WidgetStyle& widgetStyle(const String& kind) const;
    const TextAreaStyle& textAreaStyle(const String& kind) const;
};

} // namespace zel
