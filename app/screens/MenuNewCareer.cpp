#include "app/screens/MenuNewCareer.h"

#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/report/Flight.h"
#include "app/screens/MenuNotification.h"
#include "app/screens/WarProgress.h"
#include "app/war/Enlistment.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/ZelLoop.h"

void MenuNewCareer::reset() {
    setText("menuButton1", serviceText(chosen("service")));
    setText("menuButton2", startDateText(chosen("startYear"), chosen("startMonth")));
    if (runningCareer() != nullptr)
        showName();
    WarProgress::hide(menu);
}

/// A long name in the smaller letters of the date.
void MenuNewCareer::showName() {
    setText("menuButton3", pilotNameText(form.name));
    zel::Widget* name = getWidget("menuButton3");
    const zel::Widget* date = getWidget("progressDate");
    if (name != nullptr && date != nullptr && name->getLabel().isCut())
        name->setFont(date->getFont());
}

void MenuNewCareer::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    if (widget->getName() == "menuBack")
        form.isFilledIn = true;
    else if (widget->getName() == "menuButton4")
        startCareer();
}

void MenuNewCareer::startCareer() {
    Database* career = Database::instance();
    if (career == nullptr || !career->hasCareer() || menu->isTransitionRequested())
        return; // the second of two quick presses arrives after the work is done
    {
        const WarProgress progress;
        beginService(*career, flight.generator(), form.enlistment, chosen("startYear"),
                     chosen("startMonth"));
    }
    if (zel::ZelLoop::isFinished())
        return; // the window was closed: no career begins
    zel::String problem;
    if (save(problem))
        return setTransition("MenuGameMain");
    setOpen(true); // it isn't a draft any more: closing the window would lose it
    MenuNotification::show(*menu, "MenuNotificationSave", problem);
}
