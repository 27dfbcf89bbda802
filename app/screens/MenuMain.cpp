#include "app/screens/MenuMain.h"

#include "app/career/Database.h"
#include "app/mission/SimulatorCheck.h"
#include "engine/menu/widgets/Widget.h"

void MenuMain::onEnter() {
    switch (checkSimulator()) {
    case SimulatorState::NotFound:
        setTransition("MenuNotificationInstallDir");
        break;
    case SimulatorState::NoTextLog:
        setTransition("MenuNotificationMissionTextLog");
        break;
    case SimulatorState::Ready:
        break;
    }
}

void MenuMain::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    if (widget->getName() == "menuButton2")
        continueCareer();
}

void MenuMain::continueCareer() {
    Database* career = Database::instance();
    const bool loaded = career != nullptr && career->loadFile(SaveFileName);
    setTransition(loaded ? "MenuGameMain" : "BlackScreen");
}
