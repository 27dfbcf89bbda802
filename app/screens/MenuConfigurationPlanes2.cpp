#include "app/screens/MenuConfigurationPlanes2.h"

#include "app/screens/PlaneSwitches.h"

MenuConfigurationPlanes2::MenuConfigurationPlanes2()
    : ConfigurationScreen("MenuConfigurationPlanes2", planeSwitches(false)) {}
