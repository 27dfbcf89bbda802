#include "app/screens/MenuMain.h"

#include "app/mission/SimulatorCheck.h"
#include "app/screens/BookTexts.h"
#include "app/screens/CareerDrawer.h"
#include "app/screens/CareerScreen.h"
#include "engine/menu/widgets/Widget.h"

void MenuMain::onEnter() {
    CareerScreen::setOpen(false);
    if (checkSimulator() != SimulatorState::Ready)
        setTransition("MenuSimulator");
    secondPress.begin(); // the page of the simulator has a plate where this one has "Quit"
    drawer.read();
    drawer.chooseFirst();
    showLastBook();
}

void MenuMain::showLastBook() {
    const LogBookOfCareer* book = drawer.chosenBook();
    setActive("menuButton2", book != nullptr);
    setFocus(book != nullptr ? "menuButton2" : "careers");
    setText("last", book != nullptr ? railLines(*book) : "");
}

void MenuMain::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    if (widget->getName() == "menuButton2")
        setTransition(drawer.open());
    else if (widget->getName() == "menuBack")
        quit(*widget);
}

void MenuMain::quit(zel::Widget& plate) {
    plate.reset(); // the screen may stay
    if (!secondPress.isDue())
        setTransition("quitApp");
}
