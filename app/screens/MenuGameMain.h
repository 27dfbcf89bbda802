#pragma once

#include "app/screens/CareerScreen.h"

class CareerRecord;

/// The squadron office, to which a career returns between flights. Leaving it by its buttons saves
/// the career; nothing else does.
class MenuGameMain : public CareerScreen {
public:
    /// REQUIRES: the record outlives the screen.
    explicit MenuGameMain(const CareerRecord& record)
        : CareerScreen("MenuGameMain"), record(record) {}

    void onEnter() override;
    void onEntered() override; // fills in everything again
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void showSheet(const Database& career);
    void showRecordGap();
    void noteSuccession(const Database& career);

    const CareerRecord& record;
    int32_t careerNumber = -1; // of the career that was shown last
    int32_t pilot = -1;        // the player's then
    int32_t predecessor = -1;  // whom the player succeeded while the program ran; or -1
};
