#include "app/screens/MenuGameAdvance.h"

#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/screens/ScreenWording.h"

void MenuGameAdvance::onEntered() {
    const Database* career = runningCareer();
    if (career == nullptr)
        return;
    setText("line1", textOf(wording::MovedOn, {dateInLanguage(career->calendar())}));
}
