#pragma once

#include "app/screens/MenuNotification.h"

/// The career could not be saved: why, and what to do. Where another program has the career open,
/// no second try can help: the page leads to the main menu, where the career can be loaded again.
class MenuNotificationSave : public MenuNotification {
public:
    MenuNotificationSave() : MenuNotification("MenuNotificationSave") {}

    void onEnter() override;
};
