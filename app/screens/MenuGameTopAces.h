#pragma once

#include "app/screens/CareerScreen.h"

/// The ten best pilots of the war, of both sides, the fallen among them.
class MenuGameTopAces : public CareerScreen {
public:
    MenuGameTopAces() : CareerScreen("MenuGameTopAces") {}

    void onEnter() override;
};
