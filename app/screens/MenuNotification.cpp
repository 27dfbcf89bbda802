#include "app/screens/MenuNotification.h"

#include "engine/menu/widgets/Widget.h"
#include "engine/window/StatesMachine.h"

zel::String MenuNotification::reason;
zel::String MenuNotification::wayBack;

bool MenuNotification::isPage(const char* name) {
    return zel::StatesMachine::getInstance().findState(name) != nullptr;
}

void MenuNotification::onEnter() {
    setText("reason", reason);
    if (zel::Widget* plate = getWidget("menuButton1"); plate != nullptr && !wayBack.empty())
        plate->setTransition(wayBack);
}

void MenuNotification::show(zel::Menu& menu, const char* page, const zel::String& why) {
    if (!isPage(page))
        return;
    reason = why;
    wayBack = {};
    menu.setTransition(page);
}

void MenuNotification::divert(zel::Widget& widget, const char* page, const zel::String& why,
                              const zel::String& back) {
    if (!isPage(page))
        return;
    reason = why;
    wayBack = back;
    widget.setTransition(page);
}
