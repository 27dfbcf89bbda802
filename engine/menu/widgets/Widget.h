#pragma once

#include <array>

#include "engine/graphics/Text.h"
#include "engine/menu/style/Bounds.h"
#include "engine/menu/widgets/Pointer.h"
#include "engine/window/UpdateObject.h"

namespace zel {

class Image;
struct KeyPress;

/// The interactive element of the menus: a rectangle with an image for each of its looks, and a
/// text. A press and release of the mouse over it, or a key while it has the focus, hits it: it
/// notifies the active state, then follows its transition.
///
/// Owned by its menu, from when the screen is entered until it is left.
class Widget : public UpdateAndRenderObject {
public:
    static constexpr int32_t EventHit = 1;

    explicit Widget(const String& name);
    ~Widget() override;
    Widget(const Widget&) = delete;
    Widget& operator=(const Widget&) = delete;

    void update() override { handlePointer(Pointer::read()); }
    void render() override;

    virtual String getName() const { return name; }
    virtual void setText(const String& newText);
    virtual String getText() const { return text; }
    virtual String getTransition() const { return transition; }
    /// Clears the states of pointer and hits: it is drawn at rest again. Text, images, active and
    /// visible are kept.
    virtual void reset();
    virtual void setAlpha(int32_t newAlpha) { alpha = newAlpha; } // 0 to 255, for the next render
    /// Handles one frame of the pointer.
    virtual void handlePointer(const Pointer& pointer);
    /// Whether it takes typed characters while it has the focus.
    virtual bool wantsKeys() const { return false; }
    /// Handles a key while it has the focus; false if it doesn't use it.
    virtual bool takeKey(const KeyPress&) { return false; }

    /// What a release of the button over it does, even if it is inactive. During a fade neither the
    /// screen is notified nor a sound played. Code hits widgets by Menu::hitWidget(), which keeps a
    /// widget alive that its own section removes.
    void performHit();

    void setVisible(bool isVisible) { visible = isVisible; }
    bool isVisible() const { return visible; }
    /// An inactive widget shows its inactive image and isn't hit.
    void setActive(bool isActive) { active = isActive; }
    bool isActive() const { return active; }
    /// The keyboard's focus, drawn like the pointer's.
    void setFocused(bool isFocused) { focused = isFocused; }
    bool isFocused() const { return focused; }
    /// Whether it can have the keyboard's focus; labels can't.
    virtual bool canFocus() const {
        return active && visible && (kind != "widget" || !transition.empty());
    }
    bool isArmed() const { return armed; }
    bool isOver() const { return over; }
    bool wasHit() const { return hit; } // until reset()

    /// The name of a state, or an address that begins with "http://". Empty for none.
    void setTransition(const String& target) { transition = target; }
    void setKind(const String& newKind) { kind = newKind; } // lowered; it changes no style
    const String& getKind() const { return kind; }
    void setFont(const Font* font) { label.setFont(font); }
    const Font* getFont() const { return label.getFont(); }
    void setImage(WidgetLook look, const Image* image) { images[look] = image; }
    const Image* getImage(WidgetLook look) const { return images[look]; }
    void setTint(WidgetLook look, uint32_t argb) {
        tints[look] = argb;
    } // multiplied with the image
    void setTextColor(WidgetLook look, uint32_t argb) { textColors[look] = argb; }
    /// Bits of Alignment; without a direction the text is centred in it.
    void setAlignment(int32_t bits);
    /// The text is moved by x, y and stays within the rectangle less the border.
    void setTextOffset(int32_t x, int32_t y, int32_t borderX, int32_t borderY);
    void setSound(const String& file) { sound = file; } // WAV file of a hit; empty for none

    Bounds& getBounds() { return bounds; }
    const Bounds& getBounds() const { return bounds; }
    /// The look that it shows now.
    WidgetLook currentLook() const;
    /// The laid-out text.
    const Text& getLabel() const { return label; }

    /// The widget hit last; null once it is deleted.
    static Widget* lastWidgetHit;

protected:
    /// Sets the drawn text, which may differ from getText().
    void showText(const String& shown);
    uint32_t withAlpha(uint32_t argb) const;

    Bounds bounds;
    int32_t alpha = 255;

private:
    bool wasTapped() const;
    void placeLabel();
    void drawImage(Canvas& canvas);
    void drawText(Canvas& canvas);
    void followTransition();

    std::array<const Image*, LookCount> images{};
    std::array<uint32_t, LookCount> tints;
    std::array<uint32_t, LookCount> textColors;
    std::array<bool, LookCount> warned{}; // whether the missing image was logged
    bool warnedFont = false;
    bool active = true;
    bool visible = true;
    bool armed = false;            // pressed on this widget
    bool hit = false;              // stays until reset()
    bool over = false;             // the pointer is over it
    bool pressedElsewhere = false; // the button was pressed outside and is still down
    bool focused = false;
    String transition;
    String name;
    String kind = "widget";
    String text;
    String sound;
    Text label;
    PixelRect labelRect; // the rectangle that the label was laid out for
    int32_t textX = 0, textY = 0, borderX = 0, borderY = 0;
};

} // namespace zel
