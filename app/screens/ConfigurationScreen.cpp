#include "app/screens/ConfigurationScreen.h"

#include "app/career/Aircraft.h"
#include "app/screens/Preferences.h"
#include "engine/core/Window.h"
#include "engine/menu/Widget.h"

namespace {

constexpr int32_t PlanesPerPage = 12;

/// The planes of the list from that place on, as "item1" and so on.
std::vector<Switch> planeSwitches(int32_t first) {
    std::vector<Switch> switches;
    for (int32_t i = 0; i < PlanesPerPage && first + i < PlaneCount; ++i) {
        const auto plane = static_cast<size_t>(first) + static_cast<size_t>(i);
        switches.push_back(
            {zel::String("item") + (i + 1), planeDisplayNames()[plane], planeIdentifiers()[plane]});
    }
    return switches;
}

} // namespace

void ConfigurationScreen::reset() {
    if (menu == nullptr)
        return;
    for (const Switch& each : switches)
        each.show(*menu);
}

void ConfigurationScreen::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    for (const Switch& each : switches)
        if (widget->getName() == each.widget) {
            each.turn(*widget);
            onTurned(each);
        }
    reset();
}

MenuConfigurationMaps::MenuConfigurationMaps()
    : ConfigurationScreen("MenuConfigurationMaps", {{"menuButton1", "Western Front", "mapWestern"},
                                                    {"menuButton2", "The Channel", "mapChannel"}}) {
}

MenuConfigurationPlanes1::MenuConfigurationPlanes1()
    : ConfigurationScreen("MenuConfigurationPlanes1", planeSwitches(0)) {}

MenuConfigurationPlanes2::MenuConfigurationPlanes2()
    : ConfigurationScreen("MenuConfigurationPlanes2", planeSwitches(AlliedPlaneCount)) {}

MenuConfiguration::MenuConfiguration()
    : ConfigurationScreen("MenuConfiguration", {preferences::sound(), preferences::fullScreen()}) {}

void MenuConfiguration::update() {
    if (preferences::noteWindow()) // the keyboard has switched it
        reset();
}

void MenuConfiguration::onTurned(const Switch& turned) {
    if (turned.key == preferences::sound().key)
        preferences::applySound();
    else
        preferences::applyFullScreen();
}
