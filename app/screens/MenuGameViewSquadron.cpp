#include "app/screens/MenuGameViewSquadron.h"

#include "app/career/CareerTexts.h"
#include "app/career/Database.h"

void MenuGameViewSquadron::onEnter() {
    const Database* career = runningCareer();
    if (career == nullptr)
        return;
    showLines("pilot", squadronLines(*career));
    showSquadron();
}
