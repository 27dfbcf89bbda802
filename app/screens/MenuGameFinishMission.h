#pragma once

#include "app/screens/CareerScreen.h"
#include "engine/window/Timer.h"

class Flight;

/// Waits while the player flies. Every eight seconds, as long as he has the window in front of him,
/// it looks for the log of his flight; once that tells of the end of his mission it goes on to the
/// combat report. Until then it says whether a log is growing ("growing"), or that none of those
/// that have come tells of an end ("ended").
class MenuGameFinishMission : public CareerScreen {
public:
    explicit MenuGameFinishMission(Flight& flight)
        : CareerScreen("MenuGameFinishMission"), flight(flight) {}

    void update() override;
    void onEnter() override;

private:
    void showProgress();

    Flight& flight;
    zel::Timer timer; // since the last look
    bool hasGrown = false;
};
