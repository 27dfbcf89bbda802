#include "app/screens/MenuConfigurationMaps.h"

MenuConfigurationMaps::MenuConfigurationMaps()
    : ConfigurationScreen("MenuConfigurationMaps", {{"menuButton1", "Western Front", "mapWestern"},
                                                    {"menuButton2", "The Channel", "mapChannel"}}) {
}
