#pragma once

#include "app/screens/CareerScreen.h"

/// The twelve best of the player's squadron.
class MenuGameViewSquadron : public CareerScreen {
public:
    MenuGameViewSquadron() : CareerScreen("MenuGameViewSquadron") {}

    void onEnter() override;
};
