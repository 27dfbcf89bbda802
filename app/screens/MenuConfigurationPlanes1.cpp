#include "app/screens/MenuConfigurationPlanes1.h"

#include "app/screens/PlaneSwitches.h"

MenuConfigurationPlanes1::MenuConfigurationPlanes1()
    : ConfigurationScreen("MenuConfigurationPlanes1", planeSwitches(true)) {}
