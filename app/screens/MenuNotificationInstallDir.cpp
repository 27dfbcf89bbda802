#include "app/screens/MenuNotificationInstallDir.h"

#include "app/mission/Settings.h"
#include "engine/core/Language.h"
#include "engine/core/System.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr int32_t ExampleFromTheRoot = 2007; // of the language tables

} // namespace

void MenuNotificationInstallDir::onEnter() {
    const zel::String settings = settingsFileToWrite();
    setText("path", zel::system::shownText(settings));
    if (settings.view().substr(0, 1) == "/")
        setText("example", zel::Language::get(ExampleFromTheRoot));
}

void MenuNotificationInstallDir::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    if (widget->getName() == "menuButton1")
        reloadSettings();
}
