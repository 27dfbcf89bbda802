#include "app/screens/MenuGameInvite.h"

#include "engine/menu/Widget.h"

void MenuGameInvite::onEnter() {
    if (runningCareer() != nullptr && letter.open())
        setText("line2", letter.text());
}

void MenuGameInvite::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    if (runningCareer() == nullptr || menu->isTransitionRequested()) // or answered already
        return;
    const zel::String name = widget->getName();
    if (name == "menuButton4") {
        letter.refuse();
        setTransition("MenuGameMain");
    } else if (name == "menuButton3") {
        if (letter.accept())
            setTransition("MenuGameMain");
        else
            widget->reset(); // nobody to change places with: the button stays usable
    }
}
