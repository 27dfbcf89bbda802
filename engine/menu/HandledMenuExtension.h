#pragma once

#include "engine/menu/HandledMenu.h"
#include "engine/window/UpdateObject.h"

namespace zel {

class TextArea;
class Widget;

/// The code of a screen: it hears what happens to one menu, or to all, and acts on it.
///
/// It attaches itself when it is built and takes itself out when it ends; hand it to
/// ZelLoop::registerPersistent(). Every helper does nothing without a menu or for a name that the
/// menu doesn't have.
class HandledMenuExtension : public UpdateObject {
public:
    /// Listens to the menu of that name; the empty name listens to all menus.
    explicit HandledMenuExtension(const String& menuName);
    ~HandledMenuExtension() override;
    HandledMenuExtension(const HandledMenuExtension&) = delete;
    HandledMenuExtension& operator=(const HandledMenuExtension&) = delete;

    void update() override {}      // every frame, after the widgets
    virtual void reset() {}        // every entering, after onEnter()
    virtual void onFirstEnter() {} // the script's section has run, here and below
    virtual void onEnter() {}
    virtual void onEntered() {} // it is fully visible
    virtual void onLeaving() {} // the fade away begins
    virtual void onLeave() {}   // its elements are gone
    virtual void onEvent(Widget*, int32_t /*eventType*/) {}
    virtual void onPause() {}
    virtual void onContinue() {}
    virtual void render() {} // every frame, between the background and the widgets
    virtual bool query() { return true; }
    virtual Menu* getMenu() const { return menu; } // of the call that runs, or ran last
    /// The state of the menu's name, looked up once; null if there is none.
    virtual State* getState();
    virtual Widget* addWidget(const String& name, const String& text = {},
                              const String& transition = {});
    virtual TextArea* addTextArea(const String& name, const String& text = {});

    Widget* getWidget(const String& name) const;
    /// The text of the widget or else the text area of that name.
    void setText(const String& name, const String& text);
    void setActive(const String& name, bool active);            // of a widget
    void setVisible(const String& name, bool visible);          // of a widget or a text area
    void setWidgetKind(const String& name, const String& kind); // see Menu
    void setTransition(const String& target);
    /// The script's variables, of the menu and of the program.
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
