#pragma once

#include "engine/graphics/Canvas.h"
#include "engine/menu/MenuElements.h"
#include "engine/menu/script/MenuWords.h"
#include "engine/menu/style/OverlayOptions.h"
#include "engine/window/State.h"

namespace zel {

class MenuOverlay;
struct Layout;
struct Theme;

/// A state made of widgets and text areas over pictures. Elements are drawn in the order of their
/// names, all widgets before all text areas.
class Menu : public State {
public:
    /// flags: see State.
    Menu(const String& name, int32_t flags);
    ~Menu() override;

    /// Creates the element from the layout. An empty text or target leaves the layout's. On error:
    /// null, and log lines that say why.
    virtual Widget* addWidget(const String& name, const String& text, const String& transition);
    virtual TextArea* addTextArea(const String& name, const String& text);
    virtual Widget* createWidget(const String& name);
    /// Creates a widget like the layout's widget `model`, but `down` pixels lower and without text:
    /// the next row of a list. On error: as createWidget().
    Widget* createRow(const String& model, const String& name, int32_t down);
    virtual TextArea* createTextArea(const String& name);

    /// Null for a name that the menu doesn't have now.
    Widget* getWidget(const String& name) const { return elements.getWidget(name); }
    TextArea* getTextArea(const String& name) const { return elements.getTextArea(name); }
    /// Sets the text of the widget or else the text area of that name; false without either.
    bool setText(const String& name, const String& text);
    /// Gives a widget the theme's style of another kind: images, tints, font, colours, text
    /// offsets, sound. Text, position, alignment, target, active and visible are kept, and so is
    /// what the layout defines for the widget itself. On error, no such widget or a kind that the
    /// theme lacks: false, a log line, and nothing changed.
    bool setWidgetKind(const String& name, const String& kind);
    const Widgets& getWidgets() const { return elements.getWidgets(); }
    const TextAreas& getTextAreas() const { return elements.getTextAreas(); }

    /// Elements are removed at once; deleting a widget may be deferred (see MenuElements).
    void removeWidget(const String& name) { elements.removeWidget(name); }
    void removeTextArea(const String& name) { elements.removeTextArea(name); }
    void clearWidgets() { elements.clearWidgets(); }
    void clearTextAreas() { elements.clearTextAreas(); }
    void resetWidgets() { elements.resetWidgets(); }
    /// Sets the texts of the layout's language numbers again, after LayoutHandler::translate().
    void translateElements();
    /// Creates all elements again from the layout, keeping their texts, targets and switches.
    void recreateElements();

    /// False, and nothing changed, for an unknown name.
    bool setLayout(const String& name);
    bool setTheme(const String& name);
    const Layout* getLayout() const { return layout; }
    const Theme* getTheme() const { return theme; }
    /// Replaces the state's own picture, behind the elements or in front of them. On error: log
    /// lines, and the old one is kept.
    void setMenuOverlay(bool isBackground, const String& image, const OverlayOptions& options);
    /// The alignment, bits of Alignment, of elements created later that have none of their own.
    void setWidgetAlignment(int32_t bits) { widgetAlignment = bits; }
    void setTextAreaAlignment(int32_t bits) { textAreaAlignment = bits; }

    /// Hits the widget as the mouse would. False if none of that name is visible and active, or
    /// during a fade.
    bool hitWidget(const String& name);

    void update() override;
    void render() override;
    StateOverlay* getThemeBackground() const override;
    StateOverlay* getThemeForeground() const override;

protected:
    /// Whether the state machine counts this state as a user of its overlays: from when it is
    /// entered until it is left.
    bool isOverlayUser = false;

    /// Draws between the background and the widgets.
    virtual void renderMiddle() {}

private:
    void drawBackground(Canvas& canvas);
    void drawForeground(Canvas& canvas);

    Blend backgroundBlend = Blend::Normal;
    Blend foregroundBlend = Blend::Normal;
    MenuElements elements;
    const Layout* layout = nullptr;
    const Theme* theme = nullptr;
    MenuOverlay* themeBackground = nullptr;
    MenuOverlay* themeForeground = nullptr;
    Blend themeBackgroundBlend = Blend::Normal;
    Blend themeForegroundBlend = Blend::Normal;
    int32_t widgetAlignment = AlignHCenter;
    int32_t textAreaAlignment = AlignLeft;
};

} // namespace zel
