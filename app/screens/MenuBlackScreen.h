#pragma once

#include "app/screens/MenuNotification.h"

/// Shown when the career can't be loaded: why, and the way back to the save before it, if that is
/// whole.
class MenuBlackScreen : public MenuNotification {
public:
    MenuBlackScreen() : MenuNotification("BlackScreen") {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;
};
