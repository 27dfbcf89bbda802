#include "app/screens/MenuNotificationUnsaved.h"

#include "app/career/Database.h"
#include "app/report/Flight.h"
#include "app/screens/ReportPages.h"
#include "app/screens/ScreenWording.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "engine/window/StatesMachine.h"
#include "engine/window/ZelLoop.h"

MenuNotificationUnsaved::MenuNotificationUnsaved(Flight& flight, const ReportPages& pages)
    : CareerScreen("MenuNotificationUnsaved"), flight(flight), pages(pages) {
    zel::ZelLoop::setCloseAnswer([this] { return mayClose(); });
}

// The answer for zel::ZelLoop::setCloseAnswer(). During a change of screens it waits, so that the
// screen that is left gets its onLeave().
bool MenuNotificationUnsaved::mayClose() {
    zel::StatesMachine& machine = zel::StatesMachine::getInstance();
    zel::State* page = machine.findState("MenuNotificationUnsaved");
    if (page == nullptr || runningCareer() == nullptr || !isOpen())
        return true;
    if (!machine.isSettled())
        return false;
    const zel::String shown = machine.getActiveState()->getName();
    const MissionOrders* orders = flight.orders(*runningCareer());
    areOrdersOut = orders != nullptr && orders->isFlyable;
    areOrdersLost = areOrdersOut && !flight.areOrdersKept();
    isSaved = runningCareer()->isSaved(SaveFileName);
    if (isSaved && !areOrdersLost)
        return true;
    zel::Platform::getInstance().forgetQuit();
    if (shown == page->getName())
        return false; // he closes the question itself
    // Leaving the report advances the war, and the report of the day is shown only once.
    const bool isReport = shown == "MenuGameCombatReport" || shown == "MenuGameWhere";
    cameFrom = isReport ? zel::String(pages.next()) : shown;
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
        saveBefore(*widget);
}
