#include "app/screens/ConfigurationScreen.h"

#include "engine/menu/widgets/Widget.h"

ConfigurationScreen::ConfigurationScreen(const char* menuName, std::vector<Switch> switches)
    : HandledMenuExtension(menuName), switches(std::move(switches)) {}

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
