#pragma once

#include <map>

#include "engine/core/String.h"

namespace zel {

/// The flags and strings that scripts set: those of one menu, or those of the program. Names are
/// matched without regard to case.
class ScriptVariables {
public:
    /// The variables of the menu with that name; those of the program for an empty name.
    explicit ScriptVariables(const String& menuName) : menuName(menuName) {}

    void setFlag(const String& name, bool value);
    bool getFlag(const String& name) const;   // false if never set
    void storeFlag(const String& name) const; // to the preferences
    void restoreFlag(const String& name);     // unchanged if they lack it
    void setString(const String& name, const String& value);
    String getString(const String& name) const; // empty if never set
    void storeString(const String& name) const; // to the preferences
    void restoreString(const String& name);     // unchanged if they lack it
    void clear();                               // all flags and strings; the preferences stay

private:
    String keyOf(const char* kind, const String& name) const;
    void logChange(const char* kind, const String& name, const String& value) const;

    String menuName;
    std::map<String, bool> flags; // by name, lowered
    std::map<String, String> strings;
};

} // namespace zel
