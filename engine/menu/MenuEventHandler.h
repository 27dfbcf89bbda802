#pragma once

#include <cstdint>

#include "engine/core/String.h"

namespace zel {

class HandledMenuExtension;
class Menu;
class State;
class Widget;
struct KeyPress;

/// The notifications of a menu, one for each callback of its extensions.
enum class MenuCallback {
    Update,
    Render,
    Reset,
    FirstEnter,
    Enter,
    Entered,
    Leaving,
    Leave,
    Pause,
    Continue,
};

/// A listener to menus, for code that isn't a screen.
class MenuListener {
public:
    virtual ~MenuListener() = default;
    /// Called after what the menu itself does at that moment.
    virtual void notify(Menu& menu, MenuCallback what) = 0;
    /// A widget was hit. eventType: Widget::EventHit.
    virtual void onEvent(Menu& menu, Widget* widget, int32_t eventType) = 0;
};

/// The registry of listeners and extensions, by menu. Listeners are called first, each table in the
/// order of registration. It owns none of them.
class MenuEventHandler {
public:
    /// For the menu of that name. A name that no state has is looked up once and logged.
    static void addListener(const String& menuName, MenuListener* listener);
    static void addExtension(const String& menuName, HandledMenuExtension* extension);
    /// For all menus.
    static void addListener(MenuListener* listener);
    static void addExtension(HandledMenuExtension* extension);
    static void remove(const MenuListener* listener);
    static void remove(const HandledMenuExtension* extension);
    /// Empties both tables.
    static void clear();
    /// For a menu that is destroyed: its rows look the name up again.
    static void forgetMenu(const Menu& menu);

    static void notify(Menu& menu, MenuCallback what);
    static void onEvent(Menu& menu, Widget* widget, int32_t eventType);
    /// Notifies only the extensions.
    static void onKey(Menu& menu, const KeyPress& key);
    /// True unless an extension of the menu returns false.
    static bool query(Menu& menu);
};

} // namespace zel
