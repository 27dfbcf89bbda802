#pragma once

#include <vector>

#include "app/book/Standing.h"
#include "app/screens/CareerScreen.h"
#include "app/screens/RowList.h"

class PilotPages;

/// The pilots of the player's squadron, best first. A row opens its pilot's page.
class MenuGameViewSquadron : public CareerScreen {
public:
    /// REQUIRES: the pages outlive the screen.
    explicit MenuGameViewSquadron(PilotPages& pages);

    void onEnter() override;
    void update() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    PilotPages& pages;
    std::vector<StandingRow> roster;
    RowList rows;
};
