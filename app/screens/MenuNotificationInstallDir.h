#pragma once

#include "app/screens/MenuNotification.h"

/// Reports that the simulator was not found. "path" shows where the program looks for the settings
/// file, "example" what the file contains. The example's folder starts like the path: with a drive,
/// as in the menu's own text, or at the root. "Check again" reads the settings again.
class MenuNotificationInstallDir : public MenuNotification {
public:
    MenuNotificationInstallDir() : MenuNotification("MenuNotificationInstallDir") {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;
};
