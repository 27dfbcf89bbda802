#pragma once

#include "app/screens/CareerScreen.h"

class Flight;
class ReportPages;

/// Shown when the player closes the window and would lose something: the changes since the last
/// save, or orders that could not be written down. He goes back, saves and quits, or quits without
/// saving.
class MenuNotificationUnsaved : public CareerScreen {
public:
    /// REQUIRES: both outlive the screen.
    MenuNotificationUnsaved(Flight& flight, const ReportPages& pages);

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    bool mayClose();

    Flight& flight;
    const ReportPages& pages;
    zel::String cameFrom; // the screen that "Back" leads to
    bool areOrdersOut = false;
    bool areOrdersLost = false; // by quitting, even if he saves
    bool isSaved = false;
};
