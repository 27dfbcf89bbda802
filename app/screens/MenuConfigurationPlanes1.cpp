#include "app/screens/MenuConfigurationPlanes1.h"

MenuConfigurationPlanes1::MenuConfigurationPlanes1()
    : PlanesScreen("MenuConfigurationPlanes1", true) {}
