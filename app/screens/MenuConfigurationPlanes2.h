#pragma once

#include "app/screens/ConfigurationScreen.h"

/// Which of the German planes the player has.
class MenuConfigurationPlanes2 : public ConfigurationScreen {
public:
    MenuConfigurationPlanes2();
};
