#pragma once

#include "app/screens/MenuNotification.h"

/// The page that reports that the simulator was not found. "path" shows where the settings file is
/// looked for, and "example" what is in it. The example's folder begins as the path does: at a
/// drive, as the menu has it, or at the root. "Check again" reads the settings again.
class MenuNotificationInstallDir : public MenuNotification {
public:
    MenuNotificationInstallDir() : MenuNotification("MenuNotificationInstallDir") {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;
};
