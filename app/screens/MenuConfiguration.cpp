#include "app/screens/MenuConfiguration.h"

#include "app/screens/Preferences.h"

MenuConfiguration::MenuConfiguration()
    : ConfigurationScreen("MenuConfiguration", {preferences::sound(), preferences::fullScreen()}) {}

void MenuConfiguration::reset() {
    ConfigurationScreen::reset();
    showsFullScreen = preferences::fullScreen().isOn();
}

void MenuConfiguration::update() {
    if (showsFullScreen != preferences::fullScreen().isOn()) // the keyboard has switched it
        reset();
}

void MenuConfiguration::onTurned(const Switch& turned) {
    if (turned.key == preferences::sound().key)
        preferences::applySound();
    else
        preferences::applyFullScreen();
}
