#include "engine/menu/script/ScriptCommand.h"

#include <unordered_map>

#include "engine/menu/HandledMenu.h"
#include "engine/menu/script/LayoutCommands.h"
#include "engine/menu/script/MenuCommands.h"
#include "engine/menu/script/ThemeCommands.h"

namespace zel {

namespace {

using CommandMap = std::unordered_map<std::string_view, const ScriptCommand*>;

CommandMap allCommands() {
    CommandMap map;
    for (const ScriptCommands& table : {menuCommands(), layoutCommands(), themeCommands()}) {
        for (size_t i = 0; i < table.count; ++i)
            map.emplace(table.first[i].name, table.first + i);
    }
    return map;
}

} // namespace

const String& ScriptCall::operator[](size_t index) const {
    static const String empty;
    return index < words.size() ? words[index] : empty;
}

HandledMenu* ScriptCall::handled() const { return dynamic_cast<HandledMenu*>(&menu); }

const ScriptCommand* findCommand(std::string_view name) {
    static const CommandMap commands = allCommands();
    const auto found = commands.find(name);
    return found != commands.end() ? found->second : nullptr;
}

} // namespace zel
