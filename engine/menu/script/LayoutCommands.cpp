#include "engine/menu/script/LayoutCommands.h"

#include "engine/core/Language.h"
#include "engine/core/TextLines.h"
#include "engine/menu/style/LayoutHandler.h"

namespace zel {

namespace {

/// The commands for widgets and those for text areas differ only in their target. Null, with a log
/// line, if nothing is being defined.
using Target = ElementDefinition* (LayoutHandler::*)();
constexpr Target W = &LayoutHandler::currentWidget;
constexpr Target T = &LayoutHandler::currentTextArea;

template <Target Of> ElementDefinition* target() { return (LayoutHandler::getInstance().*Of)(); }

void defineLayout(ScriptCall& call) { LayoutHandler::getInstance().defineLayout(call[1]); }
void loadLayout(ScriptCall& call) { LayoutHandler::getInstance().loadLayout(call[1]); }
void defineWidget(ScriptCall& call) { LayoutHandler::getInstance().defineWidget(call[1], call[2]); }
void defineTextArea(ScriptCall& call) { LayoutHandler::getInstance().defineTextArea(call[1]); }

FontChoice fontOf(const ScriptCall& call) {
    return {call[1], call.count() > 1 ? parseCoordinate(call[2]) : -1};
}

void defineLayoutFont(ScriptCall& call) {
    if (Layout* layout = LayoutHandler::getInstance().currentLayout())
        layout->font = fontOf(call);
}

template <Target Of> void definePosition(ScriptCall& call) {
    if (ElementDefinition* element = target<Of>()) {
        element->rect.x = parseCoordinate(call[1]);
        element->rect.y = parseCoordinate(call[2]);
    }
}

template <Target Of> void defineSize(ScriptCall& call) {
    if (ElementDefinition* element = target<Of>()) {
        element->rect.width = parseCoordinate(call[1]);
        element->rect.height = parseCoordinate(call[2]);
    }
}

template <Scroll ElementDefinition::*Which> void defineScroll(ScriptCall& call) {
    if (ElementDefinition* element = target<W>())
        element->*Which = {parseCoordinate(call[1]), parseCoordinate(call[2]),
                           call.count() > 2 ? parseSeconds(call[3]) : 1.0F};
}

void defineLayoutImage(ScriptCall& call) {
    if (ElementDefinition* element = target<W>())
        setLooks(call, 2, element->images, call[1]);
}

template <Target Of> void defineElementFont(ScriptCall& call) {
    if (ElementDefinition* element = target<Of>())
        element->font = fontOf(call);
}

template <Target Of> void defineText(ScriptCall& call) {
    if (ElementDefinition* element = target<Of>()) {
        element->text = unescapeLineFeeds(call[1]);
        element->textNumber = 0;
    }
}

void defineLanguageText(ScriptCall& call) {
    if (ElementDefinition* element = target<W>()) {
        element->textNumber = call[1].toInt();
        element->text = Language::get(element->textNumber);
    }
}

void defineTransition(ScriptCall& call) {
    if (ElementDefinition* element = target<W>())
        element->transition = call[1];
}

template <Target Of> void defineAlignment(ScriptCall& call) {
    ElementDefinition* element = target<Of>();
    const std::optional<int32_t> bits = alignmentOfWord(call[1], false);
    if (!bits)
        call.badWord = call[1];
    else if (element != nullptr)
        element->alignment = withAlignment(element->alignment, *bits);
}

template <Target Of, int32_t ElementDefinition::*Which> void definePoint(ScriptCall& call) {
    ElementDefinition* element = target<Of>();
    for (size_t i = 1; element != nullptr && i <= call.count(); ++i) {
        const std::optional<int32_t> bits = alignmentOfWord(call[i], true);
        if (!bits) {
            call.badWord = call[i];
            return;
        }
        element->*Which = withAlignment(element->*Which, *bits);
    }
}

using E = ElementDefinition;
// clang-format off
constexpr ScriptCommand LayoutCommandTable[] = {
    {"layout.definelayout", 1, 1, defineLayout},
    {"layout.loadlayout", 1, 1, loadLayout},
    {"layout.definefont", 1, 2, defineLayoutFont},
    {"layout.definewidget", 1, 2, defineWidget},
    {"layout.definewidgetposition", 2, 2, definePosition<W>},
    {"layout.definewidgetsize", 2, 2, defineSize<W>},
    {"layout.definewidgetscrollinoffset", 2, 3, defineScroll<&E::scrollIn>},
    {"layout.definewidgetscrolloutoffset", 2, 3, defineScroll<&E::scrollOut>},
    {"layout.definewidgetimage", 2, OpenCount, defineLayoutImage},
    {"layout.definewidgetfont", 1, 2, defineElementFont<W>},
    {"layout.definewidgettext", 1, 1, defineText<W>},
    {"layout.definewidgetlanguagetext", 1, 1, defineLanguageText},
    {"layout.definewidgettransition", 1, 1, defineTransition},
    {"layout.definewidgetalignment", 1, 1, defineAlignment<W>},
    {"layout.definewidgetorigin", 1, OpenCount, definePoint<W, &E::origin>},
    {"layout.definewidgethandle", 1, OpenCount, definePoint<W, &E::handle>},
    {"layout.definetextarea", 1, 1, defineTextArea},
    {"layout.definetextareaposition", 2, 2, definePosition<T>},
    {"layout.definetextareasize", 2, 2, defineSize<T>},
    {"layout.definetextareafont", 1, 2, defineElementFont<T>},
    {"layout.definetextareatext", 1, 1, defineText<T>},
    {"layout.definetextareaalignment", 1, 1, defineAlignment<T>},
    {"layout.definetextareaorigin", 1, OpenCount, definePoint<T, &E::origin>},
    {"layout.definetextareahandle", 1, OpenCount, definePoint<T, &E::handle>},
};
// clang-format on

} // namespace

ScriptCommands layoutCommands() {
    return {std::begin(LayoutCommandTable), std::size(LayoutCommandTable)};
}

} // namespace zel
