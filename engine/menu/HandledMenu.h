#pragma once

#include <array>

#include "engine/menu/StandardMenu.h"
#include "engine/menu/script/MenuConfigFile.h"
#include "engine/menu/script/ScriptVariables.h"

namespace zel {

/// The sections of a script that run at events of its menu, in the order of
/// HandledMenu::EventSection. "onhit NAME" and "onevent" run at events of widgets.
constexpr const char* EventSections[] = {"init",    "deinit",  "preload",   "onfirstenter",
                                         "onenter", "reset",   "onentered", "onleaving",
                                         "onleave", "onpause", "oncontinue"};

/// A screen of the program: a menu whose script, Menus/NAME.ini, runs at its events, which then go
/// to the registered handlers and extensions.
///
/// Flags and strings are the scripts' variables (see ScriptVariables): local ones belong to the
/// menu, global ones to the program.
class HandledMenu : public StandardMenu {
public:
    /// Loads the script and runs its section "init". On error: a log line, and a menu without a
    /// script.
    HandledMenu(const String& name, int32_t flags);
    ~HandledMenu() override; // runs "deinit"

    void update() override;
    void reset() override;
    void onFirstEnter() override;
    void onEnter() override;
    void onEntered() override;
    void onLeaving() override;
    void onLeave() override;
    void onPause() override;
    void onContinue() override;
    void onEvent(Widget* widget, int32_t eventType) override;
    void onKey(const KeyPress& key) override;
    bool query() override;

    virtual void setLocalFlag(const String& flag, bool value) { locals.setFlag(flag, value); }
    virtual bool getLocalFlag(const String& flag) const { return locals.getFlag(flag); }
    virtual void storeLocalFlag(const String& flag) { locals.storeFlag(flag); }
    virtual void restoreLocalFlag(const String& flag) { locals.restoreFlag(flag); }
    virtual void setGlobalFlag(const String& flag, bool value) { globals().setFlag(flag, value); }
    virtual bool getGlobalFlag(const String& flag) const { return globals().getFlag(flag); }
    virtual void storeGlobalFlag(const String& flag) { globals().storeFlag(flag); }
    virtual void restoreGlobalFlag(const String& flag) { globals().restoreFlag(flag); }
    virtual void setLocalString(const String& name, const String& value) {
        locals.setString(name, value);
    }
    virtual String getLocalString(const String& name) const { return locals.getString(name); }
    virtual void storeLocalString(const String& name) { locals.storeString(name); }
    virtual void restoreLocalString(const String& name) { locals.restoreString(name); }
    virtual void setGlobalString(const String& name, const String& value) {
        globals().setString(name, value);
    }
    virtual String getGlobalString(const String& name) const { return globals().getString(name); }
    virtual void storeGlobalString(const String& name) { globals().storeString(name); }
    virtual void restoreGlobalString(const String& name) { globals().restoreString(name); }

    MenuConfigFile& getScript() { return script; }

    /// Creates a menu for each line of the file: "NAME", or "NAME alpha" for one drawn above its
    /// partner in fades. On error: false and a log line.
    static bool loadMenuList(const String& fileName);
    /// Deletes all menus of the list, the last one first.
    static void releaseMenus();
    /// Clears what menus share: global variables, and the tables of handlers and extensions.
    static void releaseShared();
    /// In the order of the list.
    static std::vector<HandledMenu*> getMenus();
    /// The name of the list's first menu; "blackScreen" if there is none.
    static String getFirstMenuName();

protected:
    void renderMiddle() override;

private:
    /// Indices into EventSections.
    enum EventSection : int32_t {
        Init,
        Deinit,
        Preload,
        FirstEnter,
        Enter,
        ResetSection,
        Entered,
        Leaving,
        Leave,
        Pause,
        Continue,
        SectionCount
    };
    void runSection(EventSection section);
    static ScriptVariables& globals(); // of all menus
    static std::vector<std::unique_ptr<HandledMenu>>& ownedMenus();

    MenuConfigFile script;
    ScriptVariables locals;
    // Whether the script may have the section. A run that returns false clears it, so a section of
    // a single line runs at its first event only.
    std::array<bool, SectionCount> hasSection;
};

} // namespace zel
