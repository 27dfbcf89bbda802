#pragma once

#include <vector>

#include "engine/graphics/Text.h"
#include "engine/menu/style/Bounds.h"
#include "engine/window/UpdateObject.h"

namespace zel {

/// A text that is broken into lines within its rectangle and reacts to nothing.
///
/// Owned by its menu, like widgets.
class TextArea : public UpdateAndRenderObject {
public:
    explicit TextArea(const String& name);
    TextArea(const TextArea&) = delete;
    TextArea& operator=(const TextArea&) = delete;

    void update() override {}
    void render() override;

    virtual void setAlpha(int32_t newAlpha) { alpha = newAlpha; } // 0 to 255
    /// Breaks the text into lines again. On error, without a font that loads: a log line, and
    /// nothing is drawn.
    virtual void internalUpdate();

    const String& getName() const { return name; }
    /// Also breaks the text into lines; on error as internalUpdate().
    void setText(const String& newText);
    const String& getText() const { return text.getText(); }
    void setRect(const PixelRect& rect); // at rest, in design pixels
    /// Null for none: nothing is drawn then.
    void setFont(const Font* font);
    /// The font by name, otherwise by its index in the theme's list. On error: a log line, and no
    /// font.
    void setFont(const FontChoice& choice, const std::vector<String>& themeFonts);
    const Font* getFont() const { return text.getFont(); }
    void setColor(uint32_t argb) { text.setColor(argb); }
    /// Bits of Alignment; without a direction the text is at the left, or at the top.
    void setAlignment(int32_t bits);
    void setVisible(bool isVisible) { visible = isVisible; }
    bool isVisible() const { return visible; }

    Bounds& getBounds() { return bounds; }
    const Bounds& getBounds() const { return bounds; }
    /// The laid-out text.
    const Text& getLabel() const { return text; }

private:
    Bounds bounds;
    String name;
    Text text;
    bool warnedFont = false;
    bool visible = true;
    int32_t alpha = 255;
};

} // namespace zel
