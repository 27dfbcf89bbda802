#pragma once

#include <memory>
#include <vector>

#include "engine/menu/widgets/AreaLinks.h"

namespace zel {

struct Pointer;

/// The widgets and text areas of a menu, by name, with the links to their scrolling areas.
///
/// A hit may remove the widget that was hit, or any other. It leaves the list at once, and its
/// deletion is deferred until no call is working on the list.
class MenuElements {
public:
    ~MenuElements();

    const Widgets& getWidgets() const { return widgets; }
    const TextAreas& getTextAreas() const { return textAreas; }
    /// Null for a name that isn't there, here and below.
    Widget* getWidget(const String& name) const;
    TextArea* getTextArea(const String& name) const;

    /// Adds the element under its name, in place of one that has it. Returns it.
    Widget* put(std::unique_ptr<Widget> widget);
    TextArea* put(std::unique_ptr<TextArea> textArea);
    void removeWidget(const String& name);
    void removeTextArea(const String& name);
    void clearWidgets();
    void clearTextAreas();

    /// Lets each widget handle the pointer, in the order of names.
    void handlePointer(const Pointer& pointer);
    /// Hits the widget, which must be one of these; see Widget::performHit().
    void hit(Widget& widget);
    void resetWidgets();
    /// Moves all of them to where they are drawn; see Bounds::moveTo().
    void moveTo(int32_t contentPhase, float progress);
    /// Draws all widgets, then all text areas. alpha 0 to 255.
    void render(int32_t alpha);

private:
    void deferDeletion(std::unique_ptr<Widget> widget);
    void endWork();

    Widgets widgets;
    TextAreas textAreas;
    std::vector<Widget*> walk; // of handlePointer(); null for a removed one
    std::vector<std::unique_ptr<Widget>> deferred;
    int32_t depth = 0; // of calls that work on widgets; 0 for none
};

} // namespace zel
