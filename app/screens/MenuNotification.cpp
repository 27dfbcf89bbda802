#include "app/screens/MenuNotification.h"

#include "engine/menu/widgets/Widget.h"
#include "engine/window/StatesMachine.h"

zel::String MenuNotification::reason;

bool MenuNotification::isPage(const char* name) {
    return zel::StatesMachine::getInstance().findState(name) != nullptr;
}

void MenuNotification::onEnter() { setText("reason", reason); }

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
