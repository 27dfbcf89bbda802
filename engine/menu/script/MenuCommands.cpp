#include "engine/menu/script/MenuCommands.h"

#include <algorithm>

#include "engine/core/Log.h"
#include "engine/core/TextLines.h"
#include "engine/graphics/ImageHandler.h"
#include "engine/menu/HandledMenu.h"
#include "engine/menu/StandardMenuOverlay.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/StatesMachine.h"

namespace zel {

namespace {

constexpr const char* CommandsCategory = "MenuConfigFile";

// For commands of services that this program doesn't use.
void nothing(ScriptCall&) {}

/// Runs an operation of handled menus with the first argument.
template <void (HandledMenu::*Operation)(const String&)> void onName(ScriptCall& call) {
    if (HandledMenu* menu = call.handled())
        (menu->*Operation)(call[1]);
}

template <void (HandledMenu::*Operation)(const String&, bool)> void setFlag(ScriptCall& call) {
    HandledMenu* menu = call.handled();
    const std::optional<bool> value = parseFlag(call[2]);
    if (menu != nullptr && value)
        (menu->*Operation)(call[1], *value);
}

template <void (HandledMenu::*Operation)(const String&, const String&)>
void setString(ScriptCall& call) {
    if (HandledMenu* menu = call.handled())
        (menu->*Operation)(call[1], call[2]);
}

void setTransition(ScriptCall& call) { call.menu.setTransition(call[1]); }

void setAutoTransition(ScriptCall& call) {
    call.menu.setAutoTransition(call[2], parseSeconds(call[1]));
}

/// The widget that the line names; null, with a warning, if the menu doesn't have it.
Widget* widgetOf(ScriptCall& call) {
    Widget* widget = call.menu.getWidget(call[1]);
    if (widget == nullptr)
        log(call.words[0].toLower() + " of unknown widget " + call[1], CommandsCategory,
            LogWarning);
    return widget;
}

template <bool Visible> void showWidget(ScriptCall& call) {
    if (Widget* widget = widgetOf(call))
        widget->setVisible(Visible);
}

void resetWidget(ScriptCall& call) {
    if (Widget* widget = widgetOf(call))
        widget->reset();
}

void removeWidget(ScriptCall& call) {
    if (widgetOf(call) != nullptr)
        call.menu.removeWidget(call[1]);
}

void removeTextArea(ScriptCall& call) {
    if (call.menu.getTextArea(call[1]) != nullptr)
        call.menu.removeTextArea(call[1]);
    else
        log(String("removetextarea of unknown text area ") + call[1], CommandsCategory, LogWarning);
}

void addWidget(ScriptCall& call) {
    call.menu.addWidget(call[1], unescapeLineFeeds(call[2]), call[3]);
}
void addTextArea(ScriptCall& call) { call.menu.addTextArea(call[1], unescapeLineFeeds(call[2])); }
void createWidget(ScriptCall& call) { call.menu.createWidget(call[1]); }
void createTextArea(ScriptCall& call) { call.menu.createTextArea(call[1]); }
void clearWidgets(ScriptCall& call) { call.menu.clearWidgets(); }
void resetWidgets(ScriptCall& call) { call.menu.resetWidgets(); }
void clearTextAreas(ScriptCall& call) { call.menu.clearTextAreas(); }

void setLayout(ScriptCall& call) {
    if (!call.menu.setLayout(call[1]))
        log("Layout identifier unknown", "Menu", LogWarning);
}

void setTheme(ScriptCall& call) {
    if (!call.menu.setTheme(call[1]))
        log("Theme identifier unknown", "Menu", LogWarning);
}

constexpr const char* BackgroundWords[] = {"bg", "background", "back"};
constexpr const char* ForegroundWords[] = {"fg", "foreground", "front"};

template <size_t Count> bool isOneOf(const char* const (&words)[Count], const String& word) {
    return std::any_of(std::begin(words), std::end(words),
                       [&](const char* known) { return equalsNoCase(known, word); });
}

void setMenuOverlay(ScriptCall& call) {
    const bool isBackground = isOneOf(BackgroundWords, call[1]);
    if (!isBackground && !isOneOf(ForegroundWords, call[1])) {
        call.badWord = call[1];
        return;
    }
    OverlayOptions options;
    for (size_t i = 3; i <= call.count(); ++i) {
        if (!options.take(call[i])) {
            call.badWord = call[i];
            return;
        }
    }
    call.menu.setMenuOverlay(isBackground, call[2], options);
}

template <void (Menu::*Operation)(int32_t)> void setAlignment(ScriptCall& call) {
    if (const std::optional<int32_t> bits = alignmentOfWord(call[1], false))
        (call.menu.*Operation)(*bits);
    else
        call.badWord = call[1];
}

void preloadBitmap(ScriptCall& call) { ImageHandler::getInstance().getQueue().add(call[1]); }

using H = HandledMenu;
// clang-format off
constexpr ScriptCommand MenuCommandTable[] = {
    {"include", 1, 1, nothing}, // takes effect when the file is read
    {"setlocalflag", 2, 2, setFlag<&H::setLocalFlag>},
    {"setglobalflag", 2, 2, setFlag<&H::setGlobalFlag>},
    {"storelocalflag", 1, 1, onName<&H::storeLocalFlag>},
    {"restorelocalflag", 1, 1, onName<&H::restoreLocalFlag>},
    {"storeglobalflag", 1, 1, onName<&H::storeGlobalFlag>},
    {"restoreglobalflag", 1, 1, onName<&H::restoreGlobalFlag>},
    {"setlocalstring", 2, 2, setString<&H::setLocalString>},
    {"setglobalstring", 2, 2, setString<&H::setGlobalString>},
    {"storelocalstring", 1, 1, onName<&H::storeLocalString>},
    {"restorelocalstring", 1, 1, onName<&H::restoreLocalString>},
    {"storeglobalstring", 1, 1, onName<&H::storeGlobalString>},
    {"restoreglobalstring", 1, 1, onName<&H::restoreGlobalString>},
    {"settransition", 1, 1, setTransition},
    {"addwidget", 1, 3, addWidget},
    {"showwidget", 1, 1, showWidget<true>},
    {"hidewidget", 1, 1, showWidget<false>},
    {"resetwidget", 1, 1, resetWidget},
    {"addtextarea", 1, 2, addTextArea},
    {"setlayout", 1, 1, setLayout},
    {"settheme", 1, 1, setTheme},
    {"clearwidgets", 0, 0, clearWidgets},
    {"resetwidgets", 0, 0, resetWidgets},
    {"cleartextareas", 0, 0, clearTextAreas},
    {"createwidget", 1, 1, createWidget},
    {"removewidget", 1, 1, removeWidget},
    {"createtextarea", 1, 1, createTextArea},
    {"removetextarea", 1, 1, removeTextArea},
    {"setmenuoverlay", 2, OpenCount, setMenuOverlay},
    {"setwidgetalignment", 1, 1, setAlignment<&Menu::setWidgetAlignment>},
    {"settextareaalignment", 1, 1, setAlignment<&Menu::setTextAreaAlignment>},
    {"setautotransition", 2, 2, setAutoTransition},
    {"bitmap.preload", 1, 1, preloadBitmap},
    {"synchandler.enable", 1, 1, nothing},
    {"synchandler.syncnow", 0, 1, nothing},
    {"synchandler.syncnowimportant", 0, 0, nothing},
    {"synchandler.restoreby", 1, 5, nothing},
    {"synchandler.setupdatetime", 1, 1, nothing},
    {"synchandler.excludestate", 1, 1, nothing},
    {"showactivityindicator", 0, 0, nothing},
    {"controller.addbutton", 5, 5, nothing},
    {"controller.setadditionalclickrange", 5, 5, nothing},
    {"controller.addkey", 2, 2, nothing},
    {"controller.definebuttonorigin", 1, OpenCount, nothing},
    {"controller.definebuttonhandle", 1, OpenCount, nothing},
};
// clang-format on

} // namespace

ScriptCommands menuCommands() {
    return {std::begin(MenuCommandTable), std::size(MenuCommandTable)};
}

} // namespace zel
