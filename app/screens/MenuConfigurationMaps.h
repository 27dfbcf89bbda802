#pragma once

#include "app/screens/ConfigurationScreen.h"

/// Which of the simulator's two maps the career may use.
class MenuConfigurationMaps : public ConfigurationScreen {
public:
    MenuConfigurationMaps();

    void reset() override;
};
