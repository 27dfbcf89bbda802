#pragma once

#include "app/screens/ConfigurationScreen.h"
#include "app/screens/LanguagePlates.h"

/// The program's own switches: sounds, full screen and the language. They act at once.
class MenuConfiguration : public ConfigurationScreen {
public:
    MenuConfiguration();

    void reset() override;
    void onEnter() override;
    void update() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

protected:
    void onTurned(const Switch& turned) override;

private:
    LanguagePlates languages;
    bool showsFullScreen = false;
};
