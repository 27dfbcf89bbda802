#pragma once

#include "app/screens/SecondPress.h"
#include "engine/menu/HandledMenuExtension.h"

class CareerDrawer;

/// The main menu. Each time it is entered, it checks that the simulator is there and writes the log
/// from which reports are made. Otherwise it leads to the page that asks for it. It shows the log
/// book that was flown last, and takes it up.
class MenuMain : public zel::HandledMenuExtension {
public:
    /// REQUIRES: the drawer outlives the screen.
    explicit MenuMain(CareerDrawer& drawer) : HandledMenuExtension("MenuMain"), drawer(drawer) {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void showLastBook();
    void quit(zel::Widget& plate);

    CareerDrawer& drawer;
    SecondPress secondPress;
};
