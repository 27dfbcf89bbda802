#include "app/screens/MenuConfigurationMaps.h"

#include "app/career/Bases.h"
#include "engine/core/Registry.h"

MenuConfigurationMaps::MenuConfigurationMaps()
    : ConfigurationScreen("MenuConfigurationMaps",
                          {{"menuButton1", WesternMapKey, &wording::WesternFront},
                           {"menuButton2", ChannelMapKey, &wording::TheChannel}}) {}

void MenuConfigurationMaps::reset() {
    ConfigurationScreen::reset();
    const bool usesChannel = zel::Registry::isOn(ChannelMapKey);
    setVisible("channelOff", !usesChannel);
    // With both off the career stays on the Western Front.
    setVisible("westernOff", usesChannel && !zel::Registry::isOn(WesternMapKey));
}
