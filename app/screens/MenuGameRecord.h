#pragma once

#include "app/book/PilotRecord.h"
#include "app/screens/CareerScreen.h"
#include "app/screens/MadePicture.h"

class CareerRecord;

/// The player's record of service: ranks, decorations, and a machine for each victory.
class MenuGameRecord : public CareerScreen {
public:
    /// REQUIRES: the record outlives the screen.
    explicit MenuGameRecord(CareerRecord& record)
        : CareerScreen("MenuGameRecord"), record(record) {}

    void onEnter() override;

private:
    void showRanks(const Honours& honours);
    void showRibbons(const Honours& honours);
    void showCase(const Honours& honours);
    void showVictories(const PilotRecord& pilot);
    /// Shows the image in the widget; hides it without one.
    void showImage(const zel::String& name, const zel::String& imageName);

    CareerRecord& record;
    MadePicture victories;
};
