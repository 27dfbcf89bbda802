#pragma once

#include <cstdint>

#include "engine/core/String.h"

namespace zel {

class HandledMenuExtension;
class Menu;
class State;
class Widget;

/// What a menu tells those who listen to it.
enum class MenuNotification {
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

/// A plain listener to menus, for code that isn't a screen.
class MenuListener {
public:
    virtual ~MenuListener() = default;
    virtual void notify(Menu& menu, MenuNotification what) = 0;
    virtual void onEvent(Menu& menu, Widget* widget, int32_t eventType) = 0;
};

/// Who listens to which menu: two tables, of plain listeners and of extensions. The listeners are
/// called first, each table in the order of registration. It owns nobody.
class MenuEventHandler {
public:
    /// To the menu of that name. A name that no state has is looked up once, and logged.
    static void addListener(const String& menuName, MenuListener* listener);
    static void addExtension(const String& menuName, HandledMenuExtension* extension);
    /// To all menus.
    static void addListener(MenuListener* listener);
    static void addExtension(HandledMenuExtension* extension);
    static void remove(const MenuListener* listener);
    static void remove(const HandledMenuExtension* extension);
    /// Empties both tables.
    static void clear();
    /// A menu that ends: rows that found it look it up again.
    static void forgetMenu(const Menu& menu);

    static void notify(Menu& menu, MenuNotification what);
    static void onEvent(Menu& menu, Widget* widget, int32_t eventType);
    /// True unless an extension of the menu says no.
    static bool query(Menu& menu);
};

} // namespace zel
