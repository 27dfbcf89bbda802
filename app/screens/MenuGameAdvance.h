#pragma once

#include "app/screens/CareerScreen.h"

/// The war diary page. Leaving the combat report advances the war; this page then shows the new
/// date until the player continues.
class MenuGameAdvance : public CareerScreen {
public:
    MenuGameAdvance() : CareerScreen("MenuGameAdvance") {}

    void onEntered() override;
};
