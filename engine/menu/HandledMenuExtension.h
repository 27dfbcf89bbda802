#pragma once

#include "engine/menu/HandledMenu.h"
#include "engine/window/UpdateObject.h"

namespace zel {

class TextArea;
class Widget;
struct KeyPress;

/// The code of a screen: it is notified of what happens to one menu, or to all, and acts on it.
///
/// It registers in its constructor and unregisters in its destructor; hand it to
/// ZelLoop::registerPersistent(). The helpers do nothing without a menu or for a name that the menu
/// doesn't have.
class HandledMenuExtension : public UpdateObject {
public:
    /// For the menu of that name; the empty name means all menus.
    explicit HandledMenuExtension(const String& menuName);
    ~HandledMenuExtension() override;
    HandledMenuExtension(const HandledMenuExtension&) = delete;
    HandledMenuExtension& operator=(const HandledMenuExtension&) = delete;

    void update() override {}      // every frame, after the widgets
    virtual void reset() {}        // each time it is entered, after onEnter()
    virtual void onFirstEnter() {} // after the script's section, here and below
    virtual void onEnter() {}
    virtual void onEntered() {}                             // it is fully visible
    virtual void onLeaving() {}                             // the fade away begins
    virtual void onLeave() {}                               // its elements are gone
    virtual void onEvent(Widget*, int32_t /*eventType*/) {} // a hit: Widget::EventHit
    /// Each key that is pressed while no fade runs, after the focus has handled it.
    virtual void onKey(const KeyPress&) {}
    virtual void onPause() {}
    virtual void onContinue() {}
    virtual void render() {} // every frame, between the background and the widgets
    /// The answer to State::query(); the menu returns false if any extension does.
    virtual bool query() { return true; }
    virtual Menu* getMenu() const { return menu; } // of the current call, or the last one
    /// The state of the menu's name, looked up once; null without one.
    virtual State* getState();
    virtual Widget* addWidget(const String& name, const String& text = {},
                              const String& transition = {});
    virtual TextArea* addTextArea(const String& name, const String& text = {});

    Widget* getWidget(const String& name) const;
    /// Sets the text of the widget or else the text area of that name.
    void setText(const String& name, const String& text);
    void setActive(const String& name, bool active);            // of a widget
    void setVisible(const String& name, bool visible);          // of a widget or a text area
    void setWidgetKind(const String& name, const String& kind); // see Menu
    void setFocus(const String& name);                          // see StandardMenu
    void setTransition(const String& target);
    /// The script's global variables.
    String getGlobalString(const String& variable) const;
    bool getGlobalFlag(const String& flag) const;

    void setMenu(Menu* newMenu) { menu = newMenu; }

protected:
    Menu* menu = nullptr; // set before every call

private:
    HandledMenu* handledMenu() const;

    String menuName;
    State* cachedState = nullptr;
    bool wasLookedUp = false;
};

} // namespace zel
