#include "app/screens/Switch.h"

#include "engine/core/Language.h"
#include "engine/core/Registry.h"
#include "engine/menu/Menu.h"
#include "engine/menu/style/Theme.h"
#include "engine/menu/widgets/Widget.h"

namespace {

/// The kind, in lower case, with the ending for that position; unchanged if it has neither.
zel::String kindFor(const zel::String& kind, bool on) {
    for (const std::string_view ending : {"on", "off"}) {
        const std::string_view name = kind.view();
        if (name.size() > ending.size() && name.substr(name.size() - ending.size()) == ending)
            return zel::String(name.substr(0, name.size() - ending.size())) + (on ? "on" : "off");
    }
    return kind;
}

} // namespace

bool Switch::isOn() const { return zel::Registry::get(key, atFirst).toInt() != 0; }

void Switch::show(zel::Menu& menu) const {
    const bool on = isOn();
    menu.setText(widget, textOf(on ? texts->on : texts->off, {nameInLanguage(name)}));
    const zel::Widget* shown = menu.getWidget(widget);
    if (shown == nullptr)
        return;
    const zel::String kind = kindFor(shown->getKind(), on);
    const zel::Theme* theme = menu.getTheme();
    if (kind != shown->getKind() && theme != nullptr && theme->widgets.count(kind) != 0)
        menu.setWidgetKind(widget, kind);
}

void Switch::turn(zel::Widget& pressed) const {
    // Unsigned, since an edited file may hold any number, and 1 minus the lowest overflows.
    const auto position = uint32_t(zel::Registry::get(key, atFirst).toInt());
    zel::Registry::set(key, int32_t(1 - position));
    pressed.reset();
}
