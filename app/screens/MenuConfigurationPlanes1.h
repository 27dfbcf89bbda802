#pragma once

#include "app/screens/PlanesScreen.h"

/// Which of the Allied planes the player has.
class MenuConfigurationPlanes1 : public PlanesScreen {
public:
    MenuConfigurationPlanes1();
};
