#pragma once

#include <array>

#include "engine/menu/StandardMenu.h"
#include "engine/menu/script/MenuConfigFile.h"

namespace zel {

/// The sections of a script that run at its menu's events, in the order of HandledMenu::Section.
/// "onhit NAME" and "onevent" besides run at those of widgets.
constexpr const char* EventSections[] = {"init",    "deinit",  "preload",   "onfirstenter",
                                         "onenter", "reset",   "onentered", "onleaving",
                                         "onleave", "onpause", "oncontinue"};

/// A screen of the program: a menu whose script, Menus/NAME.ini, runs at its events, and whose
/// events then go to the handlers and extensions that listen.
///
/// Flags and strings are the scripts' variables: local ones belong to the menu, global ones to the
/// program. Names are matched without regard to case.
class HandledMenu : public StandardMenu {
public:
    /// Loads the script and runs its section "init". On error: a log line, and a menu without
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
    bool query() override;

    virtual void setLocalFlag(const String& flag, bool value);
    virtual bool getLocalFlag(const String& flag) const; // false if never set
    virtual void storeLocalFlag(const String& flag);     // to the preferences
    virtual void restoreLocalFlag(const String& flag);   // unchanged if they don't have it
    virtual void setGlobalFlag(const String& flag, bool value);
    virtual bool getGlobalFlag(const String& flag) const;
    virtual void storeGlobalFlag(const String& flag);
    virtual void restoreGlobalFlag(const String& flag);
    virtual void setLocalString(const String& variable, const String& value);
    virtual String getLocalString(const String& variable) const; // empty if never set
    virtual void storeLocalString(const String& variable);
    virtual void restoreLocalString(const String& variable);
    virtual void setGlobalString(const String& variable, const String& value);
    virtual String getGlobalString(const String& variable) const;
    virtual void storeGlobalString(const String& variable);
    virtual void restoreGlobalString(const String& variable);

    MenuConfigFile& getScript() { return script; }

    /// Creates a menu for each line of the file: "NAME", or "NAME alpha" for one that is drawn on
    /// top of its partner in fades. On error: false and a log line.
    static bool loadMenuList(const String& fileName);
    /// Deletes all menus of the list, the last one first.
    static void releaseMenus();
    /// Clears what menus share: variables, and the tables of handlers and extensions.
    static void releaseShared();
    /// In the order of the list.
    static std::vector<HandledMenu*> getMenus();
    /// The name of the list's first menu; "blackScreen" if there is none.
    static String getFirstMenuName();

protected:
    void renderMiddle() override;

private:
    enum Section : int32_t {
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
    using Flags = std::map<String, bool>;
    using Strings = std::map<String, String>;

    void runSection(Section section);
    static Flags& globalFlags();
    static Strings& globalStrings();
    static std::vector<std::unique_ptr<HandledMenu>>& ownedMenus();

    MenuConfigFile script;
    Flags localFlags;
    Strings localStrings;
    // Whether it is worth looking for the section. A run that answers false ends the looking; so a
    // section of a single line runs at its first event only.
    std::array<bool, SectionCount> hasSection;
};

} // namespace zel
