#include "engine/menu/HandledMenuExtension.h"

#include "engine/menu/MenuEventHandler.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/StatesMachine.h"

namespace zel {

HandledMenuExtension::HandledMenuExtension(const String& menuName) : menuName(menuName) {
    if (menuName.empty())
        MenuEventHandler::addExtension(this);
    else
        MenuEventHandler::addExtension(menuName, this);
}

HandledMenuExtension::~HandledMenuExtension() { MenuEventHandler::remove(this); }

State* HandledMenuExtension::getState() {
    if (!wasLookedUp) {
        wasLookedUp = true;
        cachedState = StatesMachine::getInstance().getState(menuName);
    }
    return cachedState;
}

Widget* HandledMenuExtension::addWidget(const String& name, const String& text,
                                        const String& transition) {
    return menu != nullptr ? menu->addWidget(name, text, transition) : nullptr;
}

TextArea* HandledMenuExtension::addTextArea(const String& name, const String& text) {
    return menu != nullptr ? menu->addTextArea(name, text) : nullptr;
}

Widget* HandledMenuExtension::getWidget(const String& name) const {
    return menu != nullptr ? menu->getWidget(name) : nullptr;
}

void HandledMenuExtension::setText(const String& name, const String& text) {
    if (menu != nullptr)
        menu->setText(name, text);
}

void HandledMenuExtension::setActive(const String& name, bool active) {
    if (Widget* widget = getWidget(name))
        widget->setActive(active);
}

void HandledMenuExtension::setVisible(const String& name, bool visible) {
    if (Widget* widget = getWidget(name))
        widget->setVisible(visible);
    else if (TextArea* area = menu != nullptr ? menu->getTextArea(name) : nullptr)
        area->setVisible(visible);
}

void HandledMenuExtension::setWidgetKind(const String& name, const String& kind) {
    if (menu != nullptr)
        menu->setWidgetKind(name, kind);
}

void HandledMenuExtension::setFocus(const String& name) {
    if (auto* handled = dynamic_cast<HandledMenu*>(menu))
        handled->setFocus(name);
}

void HandledMenuExtension::setTransition(const String& target) {
    if (menu != nullptr)
        menu->setTransition(target);
}

HandledMenu* HandledMenuExtension::handledMenu() const { return dynamic_cast<HandledMenu*>(menu); }

String HandledMenuExtension::getGlobalString(const String& variable) const {
    const HandledMenu* handled = handledMenu();
    return handled != nullptr ? handled->getGlobalString(variable) : String();
}

bool HandledMenuExtension::getGlobalFlag(const String& flag) const {
    const HandledMenu* handled = handledMenu();
    return handled != nullptr && handled->getGlobalFlag(flag);
}

} // namespace zel
