#pragma once

#include "app/screens/MenuNotification.h"

/// Shown before the squadron office when the save file was damaged: what was fixed, where the
/// damaged file is kept, and how to return to the previous save.
class MenuNotificationRepair : public MenuNotification {
public:
    MenuNotificationRepair() : MenuNotification("MenuNotificationRepair") {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void showRepairs(bool hasBackup);
};
