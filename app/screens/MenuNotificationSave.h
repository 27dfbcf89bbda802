#pragma once

#include "app/screens/MenuNotification.h"

/// The career could not be saved: why, and what to do. Where another program has the career open,
/// only a career that was begun here can be saved later. For others the page leads to the main
/// menu, where they can be loaded again.
class MenuNotificationSave : public MenuNotification {
public:
    MenuNotificationSave() : MenuNotification("MenuNotificationSave") {}

    void onEnter() override;
};
