#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "engine/core/String.h"
#include "engine/menu/script/MenuWords.h"

namespace zel {

class Menu;
class HandledMenu;

/// One line of a script that a command runs.
struct ScriptCall {
    Menu& menu;
    const std::vector<String>& words; // the command, then its arguments
    String badWord;                   // set by a command to an unknown word

    size_t count() const { return words.size() - 1; }
    /// Argument `index`, from 1; empty if there are fewer.
    const String& operator[](size_t index) const;
    /// The menu as a handled menu, which has flags and strings; null for any other.
    HandledMenu* handled() const;
};

/// Sets a value for each look named by the words from `first` on. Words before an unknown one take
/// effect; the rest of the line is dropped.
template <typename Values, typename Value>
void setLooks(ScriptCall& call, size_t first, Values& values, const Value& value) {
    for (size_t i = first; i <= call.count(); ++i) {
        const std::optional<int32_t> looks = looksOfWord(call[i]);
        if (!looks) {
            call.badWord = call[i];
            return;
        }
        for (size_t look = 0; look < LookCount; ++look) {
            if ((*looks >> look & 1) != 0)
                values[look] = value;
        }
    }
}

constexpr int32_t OpenCount = 1024; // maximum number of arguments of commands without a limit

/// A command of the script language: its name, how many arguments it takes, and what it does.
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

/// Null for an unknown name. REQUIRES: the name is lowered.
const ScriptCommand* findCommand(std::string_view name);

} // namespace zel
