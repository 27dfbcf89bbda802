#pragma once

#include "app/screens/FolderWalk.h"
#include "app/screens/RowList.h"
#include "app/screens/SecondPress.h"
#include "engine/menu/HandledMenuExtension.h"

class SimulatorPlaces;

/// Browses the machine's folders for the simulator's. A letter key goes to the next folder that
/// begins with it, Backspace to the folder above.
class MenuSimulatorFolder : public zel::HandledMenuExtension {
public:
    /// REQUIRES: the places outlive the screen.
    explicit MenuSimulatorFolder(SimulatorPlaces& places)
        : HandledMenuExtension("MenuSimulatorFolder"), places(places) {}

    void onEnter() override;
    void update() override; // the line that counts what is in view
    void onKey(const zel::KeyPress& key) override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

private:
    void showFolder();
    void showCard();
    void goUp();
    void focusRow(int32_t row);

    SimulatorPlaces& places;
    FolderWalk walk;
    RowList rows{"folder", 50, {"row"}};
    SecondPress opened; // a folder, by the pointer
};
