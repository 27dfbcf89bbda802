#include "engine/menu/style/Theme.h"

namespace zel {

namespace {

template <typename Style>
const Style& styleOf(const std::map<String, Style>& styles, const String& kind) {
    static const Style none;
    const auto found = styles.find(kind.toLower());
    return found != styles.end() ? found->second : none;
}

} // namespace

const WidgetStyle& Theme::widgetStyle(const String& kind) const { return styleOf(widgets, kind); }

const TextAreaStyle& Theme::textAreaStyle(const String& kind) const {
    return styleOf(textAreas, kind);
}

} // namespace zel
