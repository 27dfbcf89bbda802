#include "app/screens/MenuGameCitation.h"

#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/screens/ScreenSounds.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"

void MenuGameCitation::onEnter() {
    showFront();
    setFocus("menuButton1");
}

/// Escape goes on: there is no way back.
void MenuGameCitation::onKey(const zel::KeyPress& key) {
    if (key.symbol == zel::KeyEscape && !key.repeated && !menu->isTransitionRequested())
        menu->hitWidget("menuButton1");
}

void MenuGameCitation::showFront() {
    const Database* career = runningCareer();
    if (pile.empty() || career == nullptr)
        return;
    const Citation& citation = pile.front(*career);
    setText("title", citation.title);
    setText("line1", bookDate(Calendar::ofNumber(citation.date)));
    setText("line2", citation.pilot);
    setText("line3", citation.text);
    showImage("medal", "large_" + zel::String(citation.picture));
}

void MenuGameCitation::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    const zel::String name = widget->getName();
    if (name != "record" && name != "menuButton1")
        return;
    if (!pile.empty())
        pile.forgetFront();
    if (name == "record") {
        pile.lookUp();
        return setTransition("MenuGameRecord");
    }
    const Database* career = runningCareer();
    if (pile.empty())
        return setTransition(career == nullptr ? "MenuGameDiary" : pile.next(*career));
    playScreenSound("paper");
    showFront();
}
