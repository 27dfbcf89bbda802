#include "app/screens/MenuGameInvite.h"

#include "engine/menu/widgets/Widget.h"

void MenuGameInvite::onEnter() {
    Database* career = runningCareer();
    if (career != nullptr && letter.open(*career))
        setText("line2", letter.text());
}

void MenuGameInvite::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    Database* career = runningCareer();
    if (career == nullptr || menu->isTransitionRequested()) // or answered already
        return;
    const zel::String name = widget->getName();
    if (name == "menuButton4") {
        letter.refuse(*career);
        setTransition("MenuGameMain");
    } else if (name == "menuButton3") {
        if (letter.accept(*career))
            setTransition("MenuGameMain");
        else
            widget->reset(); // nobody to change places with: the button stays usable
    }
}
