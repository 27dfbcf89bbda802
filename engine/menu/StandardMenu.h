#pragma once

#include "engine/menu/Menu.h"
#include "engine/menu/widgets/MenuFocus.h"

namespace zel {

/// A menu with the usual behaviour: it is a task of the scheduler, loses its elements when it is
/// left, and handles the keyboard.
class StandardMenu : public Menu {
public:
    using Menu::Menu;

    Widget* addWidget(const String& name, const String& text, const String& transition) override;
    TextArea* addTextArea(const String& name, const String& text) override;

    void reset() override { resetWidgets(); }
    void onFirstEnter() override; // registers it as a task, which runs while it is shown
    void onEnter() override;
    void onEntered() override {}
    void onLeaving() override {}
    void onLeave() override; // removes all elements
    void onPause() override {}
    void onContinue() override;
    void onEvent(Widget* widget, int32_t eventType) override;
    /// Each key that is pressed while no fade runs, after the focus has handled it.
    virtual void onKey(const KeyPress&) {}
    void update() override;

    const MenuFocus& getFocus() const { return focus; }
    /// Gives the keyboard's focus to the widget of that name, until the pointer moves; false if
    /// there is none that can have it.
    bool setFocus(const String& name) { return focus.set(*this, name); }

private:
    void leaveOverlays();

    MenuFocus focus;
    bool isTask = false;
    bool entered = false; // between onEnter() and onLeave()
};

} // namespace zel
