#include "engine/menu/widgets/TextInput.h"

#include <algorithm>

#include "engine/window/Platform.h"

namespace zel {

namespace {

constexpr std::string_view EndCursor = "_";    // after the text
constexpr std::string_view MiddleCursor = "|"; // within it, narrow so that letters hardly move

/// Whether the key types a character, in Windows-1252 or not.
bool isTyped(const KeyPress& key) {
    constexpr uint8_t DeleteCode = 127;
    const auto code = static_cast<uint8_t>(key.character);
    return code != 0 ? code >= ' ' && code != DeleteCode : key.unicode > DeleteCode;
}

} // namespace

void TextInput::setText(const String& newText) {
    typed = newText.left(lengthLimit);
    cursor = typed.length();
    refusal = Refusal::None;
}

void TextInput::setLengthLimit(int32_t count) {
    lengthLimit = std::max(1, count);
    setText(typed);
}

String TextInput::edited(int32_t start, int32_t count, const String& inserted) const {
    return typed.left(start) + inserted + typed.right(typed.length() - start - count);
}

bool TextInput::takeKey(const KeyPress& key) {
    if (takeCursorKey(key.symbol)) {
        refusal = Refusal::None;
        return true;
    }
    if (key.symbol == KeyBackspace || key.symbol == KeyDelete) {
        refusal = Refusal::None;
        const int32_t start = key.symbol == KeyBackspace ? cursor - 1 : cursor;
        if (start >= 0 && start < typed.length()) {
            typed = edited(start, 1, {});
            cursor = start;
        }
        return true;
    }
    if (!isTyped(key))
        return false;
    const String candidate = edited(cursor, 0, String(key.character));
    const bool isTaken = key.character != 0 && (filter == nullptr || filter(key.character));
    if (!isTaken)
        refusal = Refusal::Character;
    else
        refusal = fits(candidate) ? Refusal::None : Refusal::Length;
    if (refusal == Refusal::None) {
        typed = candidate;
        ++cursor;
    }
    return true;
}

bool TextInput::takeCursorKey(int32_t symbol) {
    if (symbol == KeyLeft)
        cursor = std::max(0, cursor - 1);
    else if (symbol == KeyRight)
        cursor = std::min(typed.length(), cursor + 1);
    else if (symbol == KeyHome)
        cursor = 0;
    else if (symbol == KeyEnd)
        cursor = typed.length();
    else
        return false;
    return true;
}

bool TextInput::fits(const String& candidate) const {
    if (candidate.length() > lengthLimit)
        return false;
    const auto width = static_cast<float>(Text::widthOf(getFont(), candidate + EndCursor));
    return getFont() == nullptr || width <= getLabel().getRect().width;
}

void TextInput::render() {
    const bool isAtEnd = cursor == typed.length();
    if (!isFocused())
        showText(typed);
    else
        showText(edited(cursor, 0, isAtEnd ? EndCursor : MiddleCursor));
    Widget::render();
}

} // namespace zel
