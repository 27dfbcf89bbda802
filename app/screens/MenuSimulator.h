#pragma once

#include "app/screens/RowList.h"
#include "app/screens/SecondPress.h"
#include "app/screens/SimulatorTexts.h"
#include "engine/menu/HandledMenuExtension.h"

class OwnStandIn;
class SimulatorPlaces;

/// Where the simulator is: every place that was found is a row, and below them are the checks of
/// the chosen one, made again at each visit and each press. It comes before the main menu while the
/// settings name no place that is ready; then the plate at the left ends the program.
class MenuSimulator : public zel::HandledMenuExtension {
public:
    /// REQUIRES: both outlive the screen.
    MenuSimulator(SimulatorPlaces& places, OwnStandIn& standIn)
        : HandledMenuExtension("MenuSimulator"), places(places), standIn(standIn) {}

    void onEnter() override;
    void update() override; // places that the search has found meanwhile
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void readSettings();
    void showPlaces();
    void showChecks();
    void showWords();
    void focusWhereItMatters();
    void choose(size_t place, bool byKey);
    void lookAgain();
    void switchTextLogOn();
    void useStandIn();
    void useChosen();
    void keepFolder(const zel::String& folder);
    void leave();
    bool isReady() const { return checks.isReady(); }

    SimulatorPlaces& places;
    OwnStandIn& standIn;
    RowList rows{"place", 50, {"row"}};
    SimulatorChecks checks; // of the chosen place
    zel::String message;    // about the last press; empty: how the places were found
    zel::String ownFocus;   // where the screen has put the focus itself
    zel::String unwritable; // the folder whose startup.cfg couldn't be changed
    bool isGone = false;    // the settings name a folder without the simulator
    bool endsProgram = false;
    bool wasSearching = false;
    SecondPress secondPress;
};
