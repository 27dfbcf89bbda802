#include "engine/menu/widgets/TextInput.h"

#include "engine/window/Platform.h"

namespace zel {

namespace {

constexpr std::string_view Cursor = "_";
constexpr int32_t MostCharacters = 128; // however wide the field

} // namespace

void TextInput::setText(const String& newText) { typed = newText; }

bool TextInput::takeKey(const Key& key) {
    if (key.symbol == KeyBackspace) {
        typed = typed.left(typed.length() - 1);
        return true;
    }
    if (key.symbol == KeyDelete) {
        typed = String();
        return true;
    }
    if (!key.printable || key.character == 0)
        return false;
    const String candidate = typed + String(key.character);
    if (fits(candidate))
        typed = candidate;
    return true;
}

bool TextInput::fits(const String& candidate) const {
    if (candidate.length() > MostCharacters)
        return false;
    const auto width = static_cast<float>(Text::widthOf(getFont(), candidate + Cursor));
    return getFont() == nullptr || width <= getLabel().getRect().width;
}

void TextInput::render() {
    showText(isFocused() ? typed + Cursor : typed);
    Widget::render();
}

} // namespace zel
