#pragma once

#include "app/screens/CareerScreen.h"
#include "app/screens/WarStrip.h"

class CareerRecord;
class Flight;

/// The squadron office, to which a career returns between flights. Leaving it by its buttons saves
/// the career. While orders are out, it leads to the page that waits for their
/// report, and to new orders for the same day.
class MenuGameMain : public CareerScreen {
public:
    /// REQUIRES: record and flight outlive the screen.
    MenuGameMain(CareerRecord& record, Flight& flight)
        : CareerScreen("MenuGameMain"), record(record), flight(flight) {}

    void onEnter() override;
    void onEntered() override; // fills in everything again
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void showSheet(const Database& career);
    void showOrders(const Database& career);
    /// What is wrong with the orders, or else what the record lacks.
    zel::String note(const Database& career);
    /// Rank, name and decorations, and how far his war is.
    void showPilot(const Database& career);
    void noteSuccession(const Database& career);

    CareerRecord& record;
    Flight& flight;
    WarStrip strip;
    bool areOrdersOut = false; // for a mission that he can fly
    int32_t careerNumber = -1; // of the career that was shown last
    int32_t pilot = -1;        // the player's then
    int32_t predecessor = -1;  // whom the player succeeded while the program ran; or -1
};
