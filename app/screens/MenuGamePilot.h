#pragma once

#include "app/screens/PilotScreen.h"
#include "app/screens/RowList.h"

/// The page of a pilot of the war, other than the player's: his service with ranks and
/// decorations, his victories, and what became of him in the real war.
class MenuGamePilot : public PilotScreen {
public:
    /// REQUIRES: both outlive the screen.
    MenuGamePilot(CareerRecord& record, PilotPages& pages);

    void onEnter() override;

private:
    void showLists(const PilotRecord& pilot, const Database& career);

    PilotPages& pages;
    RowList service;
    RowList victories;
};
