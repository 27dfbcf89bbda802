#include "app/screens/MenuGameFallen.h"

#include "app/book/BookTables.h"
#include "app/book/Condolence.h"
#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/career/Nation.h"
#include "app/record/CareerRecord.h"
#include "app/screens/CareerDrawer.h"
#include "app/screens/CitationPile.h"
#include "app/screens/MenuNotification.h"
#include "app/screens/ScreenWording.h"
#include "engine/core/Log.h"
#include "engine/menu/widgets/Widget.h"

namespace {

const char* mournedPortrait(int32_t nation) {
    return nation == France    ? "mourned_french"
           : nation == Germany ? "mourned_german"
                               : "mourned_english";
}

} // namespace

void MenuGameFallen::onEnter() {
    const Database* career = runningCareer();
    if (career == nullptr)
        return;
    fallen = fallenPilot(*career);
    SqliteFile& tables = record.read(*career);
    const Condolence letter = condolenceFor(tables, *career, BookTables::instance(), fallen);
    if (tables.failed())
        zel::log("The letter lacks what the record of the war has: " + tables.problem(), "Book",
                 zel::LogWarning);
    setText("title", bookDate(Calendar::ofNumber(letter.date)));
    setText("line1", letter.greeting);
    setText("line2", letter.text);
    setText("signed", letter.sender);
    setText("next", letter.successor);
    showImage("portrait", mournedPortrait(letter.nation));
    setText("menuButton1", textOf(letter.hasSuccessor ? wording::GoOnWithHim : wording::GoOn));
    setVisible("menuButton1", !isWarOver(*career));
    setFocus(isWarOver(*career) ? "close" : "menuButton1");
}

int32_t MenuGameFallen::fallenPilot(const Database& career) const {
    if (pile.fallen() >= 0)
        return pile.fallen();
    if (const int32_t closed = drawer.closedWith(); closed >= 0)
        return closed;
    return career.playerPilot;
}

void MenuGameFallen::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    const Database* career = runningCareer();
    if (career == nullptr)
        return;
    if (widget->getName() == "close" && !isWarOver(*career))
        return close(*widget);
    const bool isAfterTheFlight = pile.fallen() >= 0;
    pile.forgetFallen();
    if (!isWarOver(*career))
        drawer.reopen();
    setTransition(isAfterTheFlight     ? pile.next(*career)
                  : isWarOver(*career) ? "MenuGameWarOver"
                                       : "MenuGameMain");
}

/// A career that can't be saved stays open: its page says why.
void MenuGameFallen::close(zel::Widget& plate) {
    zel::String problem;
    if (!save(problem))
        return MenuNotification::divert(plate, "MenuNotificationSave", problem);
    pile.forgetFallen();
    setOpen(false);
    drawer.close(fallen);
    setTransition("MenuCareers");
}
