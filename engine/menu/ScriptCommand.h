#pragma once

#include <cstddef>
#include <vector>

#include "engine/core/String.h"

namespace zel {

class Menu;
class HandledMenu;

/// One line of a script on its way through a command.
struct ScriptCall {
    Menu& menu;
    const std::vector<String>& words; // the command, then its arguments
    String badWord;                   // set by a command that met a word it doesn't know

    size_t count() const { return words.size() - 1; }
    /// Argument `index`, from 1; empty if there are fewer.
    const String& operator[](size_t index) const;
    /// The menu's own flags and strings are those of handled menus; null for any other.
    HandledMenu* handled() const;
};

constexpr int32_t OpenCount = 1024; // the most arguments where a command leaves the count open

struct ScriptCommand {
    const char* name;         // lowered
    int32_t minimum, maximum; // arguments
    void (*run)(ScriptCall& call);
};

/// A table of commands.
struct ScriptCommands {
    const ScriptCommand* first;
    size_t count;
};

/// The tables, each beside what its commands act on.
ScriptCommands menuCommands();
ScriptCommands layoutCommands();
ScriptCommands themeCommands();

/// Null for an unknown name. REQUIRES: the name is lowered.
const ScriptCommand* findCommand(std::string_view name);

} // namespace zel
