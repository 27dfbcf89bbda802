#pragma once

#include "engine/menu/widgets/Widget.h"

namespace zel {

/// One line of keyboard input. Its text is what was typed; while it has the focus a cursor stands
/// behind it. What wouldn't fit its width isn't taken.
class TextInput : public Widget {
public:
    explicit TextInput(const String& name) : Widget(name) {}

    void setText(const String& newText) override;
    String getText() const override { return typed; }
    void render() override;
    bool wantsKeys() const override { return true; }
    /// Printable characters, backspace; the delete key empties it.
    bool takeKey(const Key& key) override;

private:
    bool fits(const String& candidate) const;

    String typed;
};

} // namespace zel
