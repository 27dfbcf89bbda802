#pragma once

#include "app/screens/CareerScreen.h"

class Flight;

/// The orders of the day. Entering the page writes the mission into the simulator's folder, every
/// time; the player then flies it there. If he has no machine for it, the page says how to get one.
class MenuGameStartMission : public CareerScreen {
public:
    explicit MenuGameStartMission(Flight& flight)
        : CareerScreen("MenuGameStartMission"), flight(flight) {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void showWhatToDo(bool isFlyable);

    Flight& flight;
    bool isSkipped = false; // the player has no machine for it
};
