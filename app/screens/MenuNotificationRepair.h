#pragma once

#include "app/screens/MenuNotification.h"

/// The page that comes before the squadron office when the save file was damaged: what was fixed,
/// where the damaged file is kept, and the way back to the save before it.
class MenuNotificationRepair : public MenuNotification {
public:
    MenuNotificationRepair() : MenuNotification("MenuNotificationRepair") {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void showRepairs(bool hasBackup);
};
