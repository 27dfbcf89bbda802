#pragma once

#include "app/screens/MenuNotification.h"

class CareerDrawer;

/// Shown when the career can't be loaded: why, and the way back to the save before it, if that is
/// whole. If the file merely couldn't be read, the player may try again.
class MenuBlackScreen : public MenuNotification {
public:
    /// REQUIRES: the drawer outlives the screen.
    explicit MenuBlackScreen(CareerDrawer& drawer)
        : MenuNotification("BlackScreen"), drawer(drawer) {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void tryAgain(zel::Widget& plate);

    CareerDrawer& drawer;
};
