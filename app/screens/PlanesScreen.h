#pragma once

#include "app/screens/ConfigurationScreen.h"

/// The planes of a side that the player has, twelve a sheet. A side with more planes has plates
/// that select the sheet, three at most.
class PlanesScreen : public ConfigurationScreen {
public:
    PlanesScreen(const char* menuName, bool allied);

    void onEnter() override; // the first sheet
    void reset() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    bool allied;
    int32_t sheet = 1;
};
