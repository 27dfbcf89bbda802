#pragma once

#include <vector>

#include "app/screens/Switch.h"
#include "engine/menu/HandledMenuExtension.h"

/// A page of switches. Each press is stored at once.
class ConfigurationScreen : public zel::HandledMenuExtension {
public:
    ConfigurationScreen(const char* menuName, std::vector<Switch> switches)
        : HandledMenuExtension(menuName), switches(std::move(switches)) {}

    void reset() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

protected:
    /// Of a switch that was just turned.
    virtual void onTurned(const Switch&) {}

private:
    std::vector<Switch> switches;
};

/// Which of the simulator's two maps the career may use.
class MenuConfigurationMaps : public ConfigurationScreen {
public:
    MenuConfigurationMaps();
};

/// Which of the Allied planes the player has.
class MenuConfigurationPlanes1 : public ConfigurationScreen {
public:
    MenuConfigurationPlanes1();
};

/// Which of the German planes the player has.
class MenuConfigurationPlanes2 : public ConfigurationScreen {
public:
    MenuConfigurationPlanes2();
};

/// The program's own switches: sounds and full screen. They act at once.
class MenuConfiguration : public ConfigurationScreen {
public:
    MenuConfiguration();

    void update() override;

protected:
    void onTurned(const Switch& turned) override;
};
