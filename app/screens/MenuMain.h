#pragma once

#include "engine/menu/HandledMenuExtension.h"

/// The main menu. At every entering it looks whether the simulator is there and keeps the log that
/// reports are made from; where not, it leads to the notice that tells the player what to do.
class MenuMain : public zel::HandledMenuExtension {
public:
    MenuMain() : HandledMenuExtension("MenuMain") {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void continueCareer();
};
