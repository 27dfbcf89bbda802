#include "app/screens/MenuNotification.h"

#include "app/mission/Settings.h"
#include "engine/core/Language.h"
#include "engine/core/System.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/StatesMachine.h"

namespace {

constexpr int32_t ExampleFromTheRoot = 2007; // of the language tables

bool isPage(const char* name) {
    return zel::StatesMachine::getInstance().findState(name) != nullptr;
}

} // namespace

zel::String MenuNotification::reason;

void MenuNotification::onEnter() {
    const zel::String settings = settingsFileToWrite();
    setText("reason", reason);
    setText("path", zel::system::shownText(settings));
    if (settings.view().substr(0, 1) == "/")
        setText("example", zel::Language::get(ExampleFromTheRoot));
}

void MenuNotification::show(zel::Menu& menu, const char* page, const zel::String& why) {
    if (!isPage(page))
        return;
    reason = why;
    menu.setTransition(page);
}

void MenuNotification::divert(zel::Widget& widget, const char* page, const zel::String& why) {
    if (!isPage(page))
        return;
    reason = why;
    widget.setTransition(page);
}
