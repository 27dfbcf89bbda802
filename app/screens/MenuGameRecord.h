#pragma once

#include "app/book/PilotRecord.h"
#include "app/screens/CareerScreen.h"
#include "app/screens/MadePicture.h"

class CareerRecord;
class CitationPile;
class Database;

/// The player's record of service: ranks, decorations, and a machine for each
/// victory. Back leads to the next citation if one has led here.
class MenuGameRecord : public CareerScreen {
public:
    /// REQUIRES: both outlive the screen.
    MenuGameRecord(CareerRecord& record, CitationPile& pile)
        : CareerScreen("MenuGameRecord"), record(record), pile(pile) {}

    void onEnter() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void showWayBack(const Database& career);
    void showRanks(const Honours& honours);
    void showRibbons(const Honours& honours);
    void showCase(const Honours& honours);
    void showVictories(const PilotRecord& pilot);

    CareerRecord& record;
    CitationPile& pile;
    MadePicture victories;
};
