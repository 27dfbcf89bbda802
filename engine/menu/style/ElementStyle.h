#pragma once

#include <memory>

#include "engine/menu/style/Layout.h"

namespace zel {

class Font;
class TextArea;
class Widget;
struct Theme;

/// A font that was chosen; null if there is none.
struct FontResult {
    const Font* font = nullptr;
    bool isUnknownIndex = false; // no font by name, and the theme's list lacks the index
};
/// The font of the choice's name, or else the one at its index in the list.
FontResult chooseFont(const FontChoice& choice, const std::vector<String>& themeFonts);

/// Gives the widget images, tints, font, colours, offsets and sound of its kind. What its layout
/// defines overrides them.
void styleWidget(Widget& widget, const Layout& layout, const Theme* theme);

/// Builds the element that a layout defines. What the layout leaves open comes from the theme by
/// the element's kind, then from the theme's defaults; a null theme has none. `alignment`, bits of
/// Alignment, applies to elements without one. On error: null, and a log line.
std::unique_ptr<Widget> createWidgetFromLayout(const Layout& layout, const String& name,
                                               const Theme* theme, int32_t alignment);
std::unique_ptr<TextArea> createTextAreaFromLayout(const Layout& layout, const String& name,
                                                   const Theme* theme, int32_t alignment);

} // namespace zel
