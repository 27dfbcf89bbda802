#include "app/screens/MenuNotificationInstallDir.h"

#include "app/mission/Settings.h"
#include "app/screens/ScreenWording.h"
#include "engine/core/System.h"
#include "engine/menu/widgets/Widget.h"

void MenuNotificationInstallDir::onEnter() {
    const zel::String settings = settingsFileToWrite();
    setText("path", zel::system::shownText(settings));
    if (settings.view().substr(0, 1) == "/")
        setText("example", textOf(wording::ExampleFromTheRoot));
}

void MenuNotificationInstallDir::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    if (widget->getName() == "menuButton1")
        reloadSettings();
}
