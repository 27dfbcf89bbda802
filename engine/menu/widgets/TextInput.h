#pragma once

#include "engine/menu/widgets/Widget.h"

namespace zel {

/// One line of keyboard input. Its text is what was typed, in Windows-1252; while it has the focus
/// a cursor shows where the next character goes. A character that would exceed its length limit or
/// its width isn't taken.
class TextInput : public Widget {
public:
    explicit TextInput(const String& name) : Widget(name) {}

    /// Cut at the length limit; the cursor goes behind it.
    void setText(const String& newText) override;
    String getText() const override { return typed; }
    /// The most characters that it takes, from 1; 128 at first. A longer text is cut.
    void setLengthLimit(int32_t count);
    void render() override;
    bool wantsKeys() const override { return true; }
    /// Characters, Backspace and Delete; Left, Right, Home and End move the cursor.
    bool takeKey(const Key& key) override;

private:
    bool takeCursorKey(int32_t symbol);
    bool fits(const String& candidate) const;
    /// The text with that much of it replaced by `inserted`, from `start` on.
    String edited(int32_t start, int32_t count, const String& inserted) const;

    String typed;
    int32_t cursor = 0; // characters before it
    int32_t lengthLimit = 128;
};

} // namespace zel
