#pragma once

#include "app/screens/MadePicture.h"
#include "app/screens/PilotScreen.h"

class CitationPile;

/// The player's record of service: ranks, decorations, and a machine for each
/// victory. Back leads to the next citation if one has led here.
class MenuGameRecord : public PilotScreen {
public:
    /// REQUIRES: all outlive the screen.
    MenuGameRecord(CareerRecord& record, CitationPile& pile, PilotPages& pages)
        : PilotScreen("MenuGameRecord", record, pages), pile(pile) {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void showWayBack(const Database& career);
    void showRanks(const Honours& honours);
    void showCase(const Honours& honours);
    void showVictories(const PilotRecord& pilot);

    CitationPile& pile;
    const char* onward = nullptr; // to what comes after the citation that has led here
    MadePicture victories;
};
