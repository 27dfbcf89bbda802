#include "app/screens/MenuMain.h"

#include "app/career/Database.h"
#include "app/mission/SimulatorCheck.h"
#include "app/screens/CareerScreen.h"
#include "app/screens/MenuNotification.h"
#include "engine/menu/widgets/Widget.h"

void MenuMain::onEnter() {
    CareerScreen::setOpen(false);
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
    if (career == nullptr || !career->loadFile(SaveFileName))
        setTransition("BlackScreen");
    else if (career->repairs.any() && MenuNotification::isPage("MenuNotificationRepair"))
        setTransition("MenuNotificationRepair");
    else
        setTransition("MenuGameMain");
}
