#pragma once

#include "app/screens/ConfigurationScreen.h"

/// Which of the Allied planes the player has.
class MenuConfigurationPlanes1 : public ConfigurationScreen {
public:
    MenuConfigurationPlanes1();
};
