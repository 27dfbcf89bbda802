#pragma once

#include "app/screens/MenuNotification.h"

class CareerDrawer;

/// Shown when the career can't be loaded: why, and the way back to the save before it, if that is
/// whole.
class MenuBlackScreen : public MenuNotification {
public:
    /// REQUIRES: the drawer outlives the screen.
    explicit MenuBlackScreen(const CareerDrawer& drawer)
        : MenuNotification("BlackScreen"), drawer(drawer) {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    const CareerDrawer& drawer;
};
