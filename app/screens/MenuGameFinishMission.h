#pragma once

#include "app/screens/CareerScreen.h"
#include "engine/window/Timer.h"

class Flight;

/// Waits while the player flies. Every eight seconds, as long as the player has its window in
/// front, it looks for the log of his flight; once that has the end of his mission it goes on to
/// the combat report. Until then it says whether it looks ("watch", and the hand of the watch) and
/// what it has found so far ("log"). "lookNow" looks at once; so does the way on without a report.
class MenuGameFinishMission : public CareerScreen {
public:
    explicit MenuGameFinishMission(Flight& flight)
        : CareerScreen("MenuGameFinishMission"), flight(flight) {}

    void update() override;
    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    bool look(bool isLastLook);
    void showWatch();
    void showNews();

    Flight& flight;
    zel::Timer timer;     // since the last look
    zel::String lookedAt; // the time of day of the last look; empty before the first
    int32_t hand = -1;    // the second that the watch shows
};
