#include "app/screens/MenuNotification.h"

#include "app/mission/Settings.h"
#include "engine/core/StatesMachine.h"
#include "engine/core/System.h"
#include "engine/menu/Widget.h"

namespace {

bool isPage(const char* name) {
    return zel::StatesMachine::getInstance().findState(name) != nullptr;
}

} // namespace

zel::String MenuNotification::reason;

void MenuNotification::onEnter() {
    setText("reason", zel::system::shownText(reason));
    setText("path", zel::system::shownText(settingsFileToWrite()));
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
