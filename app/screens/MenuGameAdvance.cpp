#include "app/screens/MenuGameAdvance.h"

#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/screens/CitationPile.h"
#include "app/screens/ScreenWording.h"
#include "engine/menu/widgets/Widget.h"

void MenuGameAdvance::onEntered() {
    const Database* career = runningCareer();
    if (career == nullptr)
        return;
    setText("line1", textOf(wording::MovedOn, {dateInLanguage(career->calendar())}));
}

void MenuGameAdvance::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    if (widget->getName() != "menuButton1")
        return;
    if (const Database* career = runningCareer())
        pile.gather(*career);
    setTransition(pile.empty() ? "MenuGameDiary" : "MenuGameCitation");
}
