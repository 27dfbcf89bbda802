#pragma once

#include <memory>
#include <vector>

#include "engine/graphics/Canvas.h"
#include "engine/menu/script/MenuWords.h"
#include "engine/menu/style/OverlayOptions.h"
#include "engine/menu/widgets/AreaLinks.h"
#include "engine/window/State.h"

namespace zel {

class MenuOverlay;
struct Layout;
struct Theme;

/// A state made of widgets and text areas over pictures. Elements are drawn in the order of their
/// names, all widgets before all text areas.
class Menu : public State {
public:
    Menu(const String& name, int32_t flags);
    ~Menu() override;

    /// Makes the element from the layout. An empty text or target leaves the layout's. On error:
    /// null, and log lines that say why.
    virtual Widget* addWidget(const String& name, const String& text, const String& transition);
    virtual TextArea* addTextArea(const String& name, const String& text);
    virtual Widget* createWidget(const String& name);
    virtual TextArea* createTextArea(const String& name);

    /// Null for a name that the menu doesn't have now.
    Widget* getWidget(const String& name) const;
    TextArea* getTextArea(const String& name) const;
    /// The text of the widget or else the text area of that name; false if there is neither.
    bool setText(const String& name, const String& text);
    /// Gives a widget the style that its theme has for another kind: images, tints, font, colours,
    /// text offsets, sound. Text, place, alignment, target, active and visible stay, and so does
    /// what the layout says of the widget itself. On error, no such widget or a kind that the theme
    /// doesn't have: false, a log line, and nothing changed.
    bool setWidgetKind(const String& name, const String& kind);
    const Widgets& getWidgets() const { return widgets; }
    const TextAreas& getTextAreas() const { return textAreas; }

    /// Elements go at once, but for those that are at work just now: they go at its end.
    void removeWidget(const String& name);
    void removeTextArea(const String& name);
    void clearWidgets();
    void clearTextAreas();
    void resetWidgets();
    /// Makes all elements anew from the layout, with the texts and switches that they have.
    void recreateElements();

    /// False, and nothing changed, for an unknown name.
    bool setLayout(const String& name);
    bool setTheme(const String& name);
    const Layout* getLayout() const { return layout; }
    const Theme* getTheme() const { return theme; }
    /// Replaces the state's own picture of that place. On error: log lines; the old one stays.
    void setMenuOverlay(bool isBackground, const String& image, const OverlayOptions& options);
    /// For elements created from now on that have no alignment of their own.
    void setWidgetAlignment(int32_t bits) { widgetAlignment = bits; }
    void setTextAreaAlignment(int32_t bits) { textAreaAlignment = bits; }

    /// Hits the widget as the mouse would. False if there is none of that name that is visible and
    /// active, or if a fade runs.
    bool hitWidget(const String& name);

    void update() override;
    void render() override;
    /// With what all but shared pictures are drawn in this frame, 0 to 255: the state's opacity. On
    /// a background that it shares with its partner, the state drawn first goes as the other comes.
    int32_t getDrawAlpha() const;
    StateOverlay* getThemeBackground() const override;
    StateOverlay* getThemeForeground() const override;

protected:
    /// Whether the state machine counts this state as a user of its overlays: after its entering,
    /// until it is left.
    bool isOverlayUser = false;

    /// Between the background and the widgets.
    virtual void renderMiddle() {}
    void updateWidgets();

private:
    /// A picture of this state, and the same place of any state, to see whether both show it.
    using OverlayOf = StateOverlay* (State::*)() const;
    /// Whether of two states it is the first one that draws a picture of both.
    using DrawsShared = bool (*)(const State& state, const State& partner);

    void deferDeletion(std::unique_ptr<Widget> widget);
    void deleteDeferred();
    void moveToPhase(Bounds& bounds) const;
    void moveElements();
    void drawBackground(Canvas& canvas);
    void drawForeground(Canvas& canvas);
    void drawPicture(Canvas& canvas, OverlayOf which, Blend blend, DrawsShared drawsShared);

    Blend backgroundBlend = Blend::Normal;
    Blend foregroundBlend = Blend::Normal;
    Widgets widgets;
    TextAreas textAreas;
    const Layout* layout = nullptr;
    const Theme* theme = nullptr;
    MenuOverlay* themeBackground = nullptr;
    MenuOverlay* themeForeground = nullptr;
    Blend themeBackgroundBlend = Blend::Normal;
    Blend themeForegroundBlend = Blend::Normal;
    int32_t widgetAlignment = AlignHCenter;
    int32_t textAreaAlignment = AlignLeft;

    std::vector<Widget*> walk; // of updateWidgets(); null for one that went meanwhile
    std::vector<std::unique_ptr<Widget>> deferred;
    int32_t working = 0; // widgets of this menu are at work, so deep
};

} // namespace zel
