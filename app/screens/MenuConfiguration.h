#pragma once

#include "app/screens/ConfigurationScreen.h"

/// The program's own switches: sounds and full screen. They act at once.
class MenuConfiguration : public ConfigurationScreen {
public:
    MenuConfiguration();

    void reset() override;
    void update() override;

protected:
    void onTurned(const Switch& turned) override;

private:
    bool showsFullScreen = false;
};
