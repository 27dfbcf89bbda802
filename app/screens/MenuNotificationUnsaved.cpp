#include "app/screens/MenuNotificationUnsaved.h"

#include <utility>

#include "app/career/Database.h"
#include "app/report/Flight.h"
#include "app/screens/MenuNotification.h"
#include "app/screens/ReportPages.h"
#include "app/screens/ScreenWording.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "engine/window/StatesMachine.h"
#include "engine/window/ZelLoop.h"

MenuNotificationUnsaved::MenuNotificationUnsaved(Flight& flight, ReportPages& pages)
    : CareerScreen("MenuNotificationUnsaved"), flight(flight), pages(pages) {
    zel::ZelLoop::setCloseAnswer([this] { return mayClose(); });
}

// The answer for zel::ZelLoop::setCloseAnswer(). It waits during a change of screens, so that the
// screen being left gets its onLeave().
bool MenuNotificationUnsaved::mayClose() {
    zel::StatesMachine& machine = zel::StatesMachine::getInstance();
    zel::State* page = machine.findState("MenuNotificationUnsaved");
    if (page == nullptr || runningCareer() == nullptr || !isOpen())
        return true;
    if (!machine.isSettled())
        return false;
    const zel::String shown = machine.getActiveState()->getName();
    if (shown == page->getName()) {
        zel::Platform::getInstance().forgetQuit();
        return false; // he closes the question itself
    }
    const bool isReport = shown == "MenuGameCombatReport" || shown == "MenuGameWhere";
    isDayHeld = isReport && !pages.isFromBook();
    const MissionOrders* orders = flight.orders(*runningCareer());
    // Once he has gone on without a report, the program no longer waits for one.
    areOrdersOut = orders != nullptr && orders->isFlyable && !isDayHeld;
    areOrdersLost = areOrdersOut && !flight.areOrdersKept();
    isSaved = runningCareer()->isSaved(SaveFileName);
    if (isSaved && !areOrdersLost)
        return true;
    zel::Platform::getInstance().forgetQuit();
    if (isDayHeld)
        pages.holdDay();
    wayOn = shown == "MenuNotificationSave" ? MenuNotification::back() : zel::String();
    cameFrom = shown;
    machine.setActiveState(page);
    return false;
}

void MenuNotificationUnsaved::onEnter() {
    setVisible("text1", !isSaved);
    setVisible("text2", areOrdersOut);
    setText("text2", textOf(areOrdersLost ? wording::QuitLosesOrders : wording::QuitWithOrders));
    if (isSaved)
        setText("title", textOf(wording::UnreportedFlight));
    setVisible("menuButton2", !isSaved);
}

void MenuNotificationUnsaved::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    const zel::String name = widget->getName();
    if (name == "menuBack")
        setTransition(cameFrom);
    else if (name == "menuButton1")
        saveAndQuit(*widget);
}

// Saves what leaving the report and saving in the office would save. If that fails, the way back
// leads on from the report, and its letters are still read.
void MenuNotificationUnsaved::saveAndQuit(zel::Widget& plate) {
    if (std::exchange(isDayHeld, false)) {
        pages.endDay();
        wayOn = pages.next();
    }
    saveBefore(plate, wayOn);
}
