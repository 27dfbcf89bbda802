#include "app/screens/MenuConfigurationMaps.h"

MenuConfigurationMaps::MenuConfigurationMaps()
    : ConfigurationScreen("MenuConfigurationMaps",
                          {{"menuButton1", "mapWestern", &wording::WesternFront},
                           {"menuButton2", "mapChannel", &wording::TheChannel}}) {}
