#pragma once

#include "engine/menu/HandledMenuExtension.h"

/// The main menu. Each time it is entered, it checks that the simulator is there and writes the log
/// from which reports are made. Otherwise it leads to the notice that says what to do.
class MenuMain : public zel::HandledMenuExtension {
public:
    MenuMain() : HandledMenuExtension("MenuMain") {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void continueCareer();
};
