#include "app/screens/MenuConfigurationMaps.h"

#include "engine/core/Registry.h"

MenuConfigurationMaps::MenuConfigurationMaps()
    : ConfigurationScreen("MenuConfigurationMaps",
                          {{"menuButton1", "mapWestern", &wording::WesternFront},
                           {"menuButton2", "mapChannel", &wording::TheChannel}}) {}

void MenuConfigurationMaps::reset() {
    ConfigurationScreen::reset();
    const bool usesChannel = zel::Registry::isOn("mapChannel");
    setVisible("channelOff", !usesChannel);
    // With both off the career stays on the Western Front.
    setVisible("westernOff", usesChannel && !zel::Registry::isOn("mapWestern"));
}
