#include "app/screens/MenuConfiguration.h"

#include "app/screens/Preferences.h"

MenuConfiguration::MenuConfiguration()
    : ConfigurationScreen("MenuConfiguration", {preferences::sound(), preferences::fullScreen()}) {}

void MenuConfiguration::reset() {
    ConfigurationScreen::reset();
    showsFullScreen = preferences::fullScreen().isOn();
}

void MenuConfiguration::onEnter() {
    if (menu != nullptr)
        languages.show(*menu);
}

void MenuConfiguration::onEvent(zel::Widget* widget, int32_t eventType) {
    if (menu != nullptr && languages.press(*menu, *widget))
        languages.show(*menu);
    ConfigurationScreen::onEvent(widget, eventType);
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
