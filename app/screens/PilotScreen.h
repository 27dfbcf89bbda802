#pragma once

#include "app/book/PilotRecord.h"
#include "app/screens/CareerScreen.h"

class CareerRecord;
class PilotPages;

/// What the record of service and the page of another pilot share: his name and photograph, his
/// ribbons, the stamp of a dead man, and a way back to the list that led here.
class PilotScreen : public CareerScreen {
public:
    /// REQUIRES: both outlive the screen.
    PilotScreen(const char* name, CareerRecord& record, PilotPages& pages)
        : CareerScreen(name), record(record), pages(pages) {}

    void onEvent(zel::Widget* widget, int32_t eventType) override;

protected:
    /// Reads the pilot and shows what the two have in common.
    PilotRecord showPilot(const Database& career, int32_t pilot);
    CareerRecord& record;

private:
    void showRibbons(const Honours& honours);
    void leadBack();

    PilotPages& pages;
    zel::String origin; // the list that led here; empty for none
};
