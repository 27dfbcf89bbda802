#pragma once

#include "app/screens/CareerScreen.h"

/// The last page before a new career. It creates the career, shows the player who he is and, once
/// he confirms, simulates the war up to his first day and saves.
///
/// What was chosen on the pages before is in the global strings `service` (0 French, 1 English,
/// 2 German), `startYear` and `startMonth`.
class MenuNewCareer : public CareerScreen {
public:
    MenuNewCareer() : CareerScreen("MenuNewCareer") {}

    void reset() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    int32_t chosen(const char* what) const { return getGlobalString(what).toInt(); }
    void startCareer();
    void goBack();
};
