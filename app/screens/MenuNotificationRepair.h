#pragma once

#include "app/screens/MenuNotification.h"

class CareerDrawer;

/// Shown before a career's first screen when the save file was damaged: what was fixed, where the
/// damaged file is kept, and how to return to the previous save, if there is one older than the
/// file that was read.
class MenuNotificationRepair : public MenuNotification {
public:
    /// REQUIRES: the drawer outlives the screen.
    explicit MenuNotificationRepair(const CareerDrawer& drawer)
        : MenuNotification("MenuNotificationRepair"), drawer(drawer) {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    const CareerDrawer& drawer;
};
