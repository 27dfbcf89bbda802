#include "app/screens/MenuNewCareer.h"

#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/screens/MenuNotification.h"
#include "app/screens/WarProgress.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/ZelLoop.h"

void MenuNewCareer::reset() {
    Database* career = Database::instance();
    if (career == nullptr)
        return;
    const int32_t service = chosen("service");
    career->createCareer(service);
    setText("menuButton1", serviceText(service));
    setText("menuButton2", startDateText(chosen("startYear"), chosen("startMonth")));
    if (career->hasCareer())
        setText("menuButton3", pilotNameText(*career));
    WarProgress::hide(menu);
}

void MenuNewCareer::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    if (widget->getName() == "menuBack")
        goBack();
    else if (widget->getName() == "menuButton4")
        startCareer();
}

void MenuNewCareer::startCareer() {
    Database* career = Database::instance();
    if (career == nullptr || !career->hasCareer() || menu->isTransitionRequested())
        return; // the second of two quick presses arrives after the work is done
    {
        const WarProgress progress;
        career->simulateToDate(chosen("startYear"), chosen("startMonth"), 1);
    }
    if (zel::ZelLoop::isFinished())
        return; // he closed the window meanwhile, and begins no career
    if (zel::String problem; save(problem))
        setTransition("MenuGameMain");
    else
        MenuNotification::show(*menu, "MenuNotificationSave", problem);
}

void MenuNewCareer::goBack() {
    switch (chosen("startYear")) {
    case 1915:
        setTransition("MenuNewYear");
        break;
    case 1918:
        setTransition("MenuNewMonth1918");
        break;
    default:
        setTransition("MenuNewMonth");
    }
}
