#pragma once

#include "app/mission/DailyMission.h"
#include "app/screens/CareerScreen.h"
#include "app/screens/FlightRoster.h"
#include "app/screens/LastLook.h"
#include "app/screens/MadePicture.h"
#include "app/screens/SecondPress.h"

class CareerRecord;
class Flight;

/// The orders of the day: what to do, the sky, who flies with the player, and a map of the sector.
/// Entering the page writes the mission into the simulator's folder, every time but after the
/// question about closing the window; the player then flies it there. If he has no machine for it,
/// the page says how to get one.
class MenuGameStartMission : public CareerScreen {
public:
    /// REQUIRES: both outlive the screen.
    MenuGameStartMission(Flight& flight, CareerRecord& record)
        : CareerScreen("MenuGameStartMission"), flight(flight), record(record) {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void showWhatToDo(bool isFlyable);
    void showTask(const Database& career);
    void skip(Database& career, zel::Widget& plate);
    void showRoster(const Database& career);

    Flight& flight;
    CareerRecord& record;
    DailyMission today; // as it was written last
    FlightRoster roster;
    MadePicture map;
    SecondPress secondPress; // after the news that holds him
    LastLook lastLook;
    bool isSkipped = false; // the player has no machine for it
};
