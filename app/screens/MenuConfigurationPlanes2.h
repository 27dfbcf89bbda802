#pragma once

#include "app/screens/PlanesScreen.h"

/// Which of the German planes the player has.
class MenuConfigurationPlanes2 : public PlanesScreen {
public:
    MenuConfigurationPlanes2();
};
