#include "app/screens/LanguagePlates.h"

#include "engine/menu/Menu.h"
#include "engine/menu/style/LayoutHandler.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr size_t Plates = 6;
constexpr int32_t OwnName = 5000; // text of each language's table

zel::String plateName(size_t index) { return zel::String("language") + int32_t(index + 1); }

} // namespace

void LanguagePlates::show(zel::Menu& menu) {
    languages = zel::Language::known(OwnName);
    for (size_t i = 0; i < Plates; ++i) {
        const zel::String name = plateName(i);
        zel::Widget* plate = menu.getWidget(name);
        if (plate == nullptr)
            continue;
        plate->setVisible(i < languages.size());
        if (i >= languages.size())
            continue;
        const bool isInUse = languages[i].code == zel::Language::getCode();
        plate->setText(languages[i].name);
        menu.setWidgetKind(name, isInUse ? "languageon" : "languageoff");
    }
}

bool LanguagePlates::press(zel::Menu& menu, zel::Widget& widget) {
    for (size_t i = 0; i < languages.size() && i < Plates; ++i) {
        if (widget.getName() != plateName(i))
            continue;
        widget.reset(); // the screen stays
        if (zel::Language::choose(languages[i].code)) {
            zel::LayoutHandler::getInstance().translate();
            menu.translateElements();
        }
        return true;
    }
    return false;
}
