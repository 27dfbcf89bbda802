#pragma once

#include "app/screens/CareerScreen.h"
#include "app/screens/LastLook.h"
#include "app/screens/SecondPress.h"
#include "engine/window/Timer.h"

class Flight;
class OwnStandIn;

/// Waits while the player flies. Every eight seconds, while the window is in front, it checks for
/// the log of the flight. Once the log has the end of the mission, the combat report follows. Until
/// then the page shows whether it is checking ("watch", and the watch's hand) and what it has found
/// so far ("log"), or why the stand-in can't fly. "lookNow" checks at once; so does the button that
/// continues without a report, and the page itself if an earlier run of the program gave the
/// orders. That button is where the page before has "Start Mission", so the second press of a pair
/// doesn't end the day.
class MenuGameFinishMission : public CareerScreen {
public:
    /// REQUIRES: both outlive the screen.
    MenuGameFinishMission(Flight& flight, const OwnStandIn& standIn)
        : CareerScreen("MenuGameFinishMission"), flight(flight), standIn(standIn) {}

    void update() override;
    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    bool look(bool isLastLook);
    void goOnWithout(zel::Widget& plate);
    void showWatch();
    zel::String logText() const;
    void showNews();

    Flight& flight;
    const OwnStandIn& standIn;
    SecondPress secondPress;
    LastLook lastLook;
    zel::Timer timer;     // since the last look
    zel::String lookedAt; // the time of day of the last look; empty before the first
    int32_t hand = -1;    // the second that the watch shows
};
