#include "app/screens/MenuConfigurationPlanes2.h"

MenuConfigurationPlanes2::MenuConfigurationPlanes2()
    : PlanesScreen("MenuConfigurationPlanes2", false) {}
