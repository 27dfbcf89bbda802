#pragma once

#include "app/screens/CareerScreen.h"

/// The page of the war diary on which the war moves on. The combat report moves it as it is left;
/// then this page shows the new date, until the player goes on.
class MenuGameAdvance : public CareerScreen {
public:
    MenuGameAdvance() : CareerScreen("MenuGameAdvance") {}

    void onEntered() override;
};
