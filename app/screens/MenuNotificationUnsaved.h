#pragma once

#include "app/screens/CareerScreen.h"

class Flight;
class ReportPages;

/// Shown when the player closes the window and would lose something: the changes since the last
/// save, or orders that could not be stored. He goes back, saves and quits, or quits without
/// saving. On the way here the combat report of the day and its sketch don't end the day: he can go
/// back to them. If he saves, the day ends first.
class MenuNotificationUnsaved : public CareerScreen {
public:
    /// REQUIRES: both outlive the screen.
    MenuNotificationUnsaved(Flight& flight, ReportPages& pages);

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    bool mayClose();
    void saveAndQuit(zel::Widget& plate);

    Flight& flight;
    ReportPages& pages;
    zel::String cameFrom;   // the screen that "Back" leads to
    zel::String wayOn;      // from the report of a day that has ended here; or empty
    bool isDayHeld = false; // he came from the flight of the day
    bool areOrdersOut = false;
    bool areOrdersLost = false; // by quitting, even if he saves
    bool isSaved = false;
};
