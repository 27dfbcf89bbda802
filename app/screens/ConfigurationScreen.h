#pragma once

#include <vector>

#include "app/screens/Switch.h"
#include "engine/menu/HandledMenuExtension.h"

/// A page of switches. Each press is stored at once.
class ConfigurationScreen : public zel::HandledMenuExtension {
public:
    ConfigurationScreen(const char* menuName, std::vector<Switch> switches);

    void reset() override;
    void onEvent(zel::Widget* widget, int32_t eventType) override;

protected:
    /// Sets the page's switches, from the next reset() on.
    void setSwitches(std::vector<Switch> newSwitches) { switches = std::move(newSwitches); }
    /// A switch was just turned, and its new position is stored.
    virtual void onTurned(const Switch& /*turned*/) {}

private:
    std::vector<Switch> switches;
};
