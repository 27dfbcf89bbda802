#pragma once

#include "app/screens/CareerScreen.h"

/// Shown when the player closes the window and would lose something: the changes since the last
/// save, or a mission that has no report yet. He goes back, saves and quits, or quits without
/// saving.
class MenuNotificationUnsaved : public CareerScreen {
public:
    MenuNotificationUnsaved();

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    bool mayClose();

    zel::String cameFrom; // the screen that "Back" leads to
    bool isFlying = false;
    bool isSaved = false;
};
