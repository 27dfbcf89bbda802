#pragma once

#include "engine/menu/widgets/Widget.h"

namespace zel {

/// A line of keyboard input, in Windows-1252. While it has the focus, a cursor shows where the next
/// character goes. A character that exceeds its length limit or its width isn't taken, nor one that
/// code refuses.
class TextInput : public Widget {
public:
    explicit TextInput(const String& name) : Widget(name) {}

    /// Cuts the text at the length limit; the cursor goes to its end.
    void setText(const String& newText) override;
    String getText() const override { return typed; }
    /// The maximum number of characters, from 1; initially 128. A longer text is cut.
    void setLengthLimit(int32_t count);
    int32_t getLengthLimit() const { return lengthLimit; }
    /// Accepts only characters for which the function returns true; null, the default, for all.
    void setFilter(bool (*newFilter)(char character)) { filter = newFilter; }
    /// Why the last key that it used changed nothing.
    enum class Refusal : uint8_t {
        None,
        Character, // refused by the filter, or not one of Windows-1252
        Length,    // no room for one more
    };
    Refusal getRefusal() const { return refusal; }
    void render() override;
    bool wantsKeys() const override { return true; }
    /// Characters, Backspace and Delete; Left, Right, Home and End move the cursor.
    bool takeKey(const KeyPress& key) override;

private:
    bool takeCursorKey(int32_t symbol);
    bool fits(const String& candidate) const;
    /// The text with `count` characters from `start` on replaced by `inserted`.
    String edited(int32_t start, int32_t count, const String& inserted) const;

    String typed;
    int32_t cursor = 0; // characters before it
    int32_t lengthLimit = 128;
    bool (*filter)(char character) = nullptr;
    Refusal refusal = Refusal::None;
};

} // namespace zel
