#pragma once

#include "app/screens/CareerScreen.h"
#include "app/screens/EnlistmentForm.h"

class Flight;

/// The last page before a new career. It shows the player who he is and, once he confirms,
/// simulates the war up to his first day and saves.
///
/// The choices made on the pages before are in the enlistment form and in the global strings
/// `service` (0 French, 1 English, 2 German), `startYear` and `startMonth`.
class MenuNewCareer : public CareerScreen {
public:
    /// REQUIRES: the form and the flight outlive the screen.
    MenuNewCareer(EnlistmentForm& form, Flight& flight)
        : CareerScreen("MenuNewCareer"), form(form), flight(flight) {}

    void reset() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    int32_t chosen(const char* what) const { return getGlobalString(what).toInt(); }
    void showName();
    void startCareer();

    EnlistmentForm& form;
    Flight& flight;
};
