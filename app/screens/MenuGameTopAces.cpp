#include "app/screens/MenuGameTopAces.h"

#include "app/career/CareerTexts.h"
#include "app/career/Database.h"

void MenuGameTopAces::onEnter() {
    if (const Database* career = runningCareer())
        showLines("pilot", aceLines(*career));
}
