#include "app/screens/MenuGameAdvance.h"

#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/screens/CitationPile.h"
#include "app/screens/ReportPages.h"
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
    const Database* career = runningCareer();
    if (career == nullptr)
        return setTransition("MenuGameDiary");
    pile.gather(*career, pages.takeFallen());
    setTransition(pile.next(*career));
}
