#include "engine/menu/script/ThemeCommands.h"

#include "engine/menu/style/ThemeHandler.h"

namespace zel {

namespace {

/// The current theme; null, with a log line, without one.
Theme* theme() { return ThemeHandler::getInstance().currentTheme(); }

WidgetStyle* widgetStyle(const String& kind) {
    Theme* current = theme();
    return current != nullptr ? &current->widgets[kind.toLower()] : nullptr;
}

TextAreaStyle* textAreaStyle(const String& kind) {
    Theme* current = theme();
    return current != nullptr ? &current->textAreas[kind.toLower()] : nullptr;
}

int32_t indexOf(const ScriptCall& call, size_t argument) {
    return call.count() >= argument ? parseCoordinate(call[argument]) : -1;
}

std::optional<uint32_t> colorOf(ScriptCall& call, size_t argument) {
    const std::optional<uint32_t> color = parseColor(call[argument]);
    if (!color)
        call.badWord = call[argument];
    return color;
}

void defineTheme(ScriptCall& call) { ThemeHandler::getInstance().defineTheme(call[1]); }
void clearTheme(ScriptCall&) { ThemeHandler::getInstance().clearTheme(); }
void defineThemeFont(ScriptCall& call) {
    ThemeHandler::getInstance().defineFont(call[1], indexOf(call, 2));
}

void defineThemeImage(ScriptCall& call) {
    if (WidgetStyle* style = widgetStyle(call[1]))
        setLooks(call, 3, style->images, call[2]);
}

template <LookColors WidgetStyle::*Which> void defineWidgetColor(ScriptCall& call) {
    WidgetStyle* style = widgetStyle(call[1]);
    const std::optional<uint32_t> color = colorOf(call, 2);
    if (style != nullptr && color)
        setLooks(call, 3, style->*Which, color);
}

void defineTextColor(ScriptCall& call) {
    Theme* current = theme();
    const std::optional<uint32_t> color = colorOf(call, 1);
    if (current != nullptr && color)
        setLooks(call, 2, current->textColors, color);
}

template <int32_t WidgetStyle::*X, int32_t WidgetStyle::*Y> void defineOffset(ScriptCall& call) {
    if (WidgetStyle* style = widgetStyle(call[1])) {
        style->*X = parseCoordinate(call[2]);
        style->*Y = parseCoordinate(call[3]);
    }
}

/// Sets the name, and the index if there is one; otherwise an earlier index is kept.
void setFont(FontChoice& font, ScriptCall& call) {
    font.name = call[2];
    if (const int32_t index = indexOf(call, 3); index >= 0)
        font.index = index;
}

void defineWidgetFont(ScriptCall& call) {
    if (WidgetStyle* style = widgetStyle(call[1]))
        setFont(style->font, call);
}

void defineTextAreaFont(ScriptCall& call) {
    if (TextAreaStyle* style = textAreaStyle(call[1]))
        setFont(style->font, call);
}

// The second integer has no effect.
void defineWidgetFontIndex(ScriptCall& call) {
    if (WidgetStyle* style = widgetStyle(call[1]))
        style->font.index = indexOf(call, 2);
}

void defineTextAreaFontIndex(ScriptCall& call) {
    if (TextAreaStyle* style = textAreaStyle(call[1]))
        style->font.index = indexOf(call, 2);
}

void defineTextAreaColor(ScriptCall& call) {
    Theme* current = theme();
    const std::optional<uint32_t> color = colorOf(call, 1);
    if (current == nullptr || !color)
        return;
    if (call.count() > 1)
        current->textAreas[call[2].toLower()].color = color;
    else
        current->textAreaColor = color;
}

template <String Theme::*Which> void defineImage(ScriptCall& call) {
    if (Theme* current = theme())
        current->*Which = call[1];
}

template <ThemeOverlay Theme::*Which> void defineOverlay(ScriptCall& call) {
    OverlayOptions options;
    if (call.count() > 1 && !options.take(call[2]))
        call.badWord = call[2];
    else if (Theme* current = theme())
        current->*Which = {call[1], options};
}

void defineWidgetSound(ScriptCall& call) {
    if (WidgetStyle* style = widgetStyle(call[1]))
        style->sound = call[2];
}

using S = WidgetStyle;
// clang-format off
constexpr ScriptCommand ThemeCommandTable[] = {
    {"theme.definetheme", 1, 1, defineTheme},
    {"theme.cleartheme", 0, 0, clearTheme},
    {"theme.definefont", 1, 2, defineThemeFont},
    {"theme.definewidgetimage", 3, OpenCount, defineThemeImage},
    {"theme.definewidgetimagecolorargb", 3, OpenCount, defineWidgetColor<&S::tints>},
    {"theme.definetextcolorargb", 2, OpenCount, defineTextColor},
    {"theme.definewidgettextcolorargb", 3, OpenCount, defineWidgetColor<&S::textColors>},
    {"theme.definewidgettextoffset", 3, 3, defineOffset<&S::textX, &S::textY>},
    {"theme.definewidgettextborderoffset", 3, 3, defineOffset<&S::borderX, &S::borderY>},
    {"theme.definewidgetfont", 2, 3, defineWidgetFont},
    {"theme.definetextareafont", 2, 3, defineTextAreaFont},
    {"theme.definewidgetfontindex", 3, 3, defineWidgetFontIndex},
    {"theme.definetextareafontindex", 3, 3, defineTextAreaFontIndex},
    {"theme.definetextareacolorargb", 1, 2, defineTextAreaColor},
    {"theme.definebackgroundimage", 1, 1, defineImage<&Theme::backgroundImage>},
    {"theme.defineforegroundimage", 1, 1, defineImage<&Theme::foregroundImage>},
    {"theme.definebackgroundmenuoverlay", 1, 2, defineOverlay<&Theme::backgroundOverlay>},
    {"theme.defineforegroundmenuoverlay", 1, 2, defineOverlay<&Theme::foregroundOverlay>},
    {"theme.definewidgetsound", 2, 2, defineWidgetSound},
};
// clang-format on

} // namespace

ScriptCommands themeCommands() {
    return {std::begin(ThemeCommandTable), std::size(ThemeCommandTable)};
}

} // namespace zel
