#include "engine/menu/script/ScriptVariables.h"

#include <optional>

#include "engine/core/Log.h"
#include "engine/core/Registry.h"

namespace zel {

namespace {

constexpr const char* VariablesCategory = "MenuConfigFile";
constexpr const char* FlagKind = "flag";
constexpr const char* StringKind = "string";

template <typename Value>
Value valueOf(const std::map<String, Value>& variables, const String& name) {
    const auto found = variables.find(name.toLower());
    return found != variables.end() ? found->second : Value();
}

/// The preference under that key; empty if there is none.
std::optional<String> stored(const String& key) {
    return Registry::has(key) ? std::optional<String>(Registry::get(key, "")) : std::nullopt;
}

} // namespace

// "__localflag__MENU__NAME" or "__globalflag__NAME".
String ScriptVariables::keyOf(const char* kind, const String& name) const {
    const String start = String(menuName.empty() ? "__global" : "__local") + kind + "__";
    return (menuName.empty() ? start : start + menuName + "__") + name.toLower();
}

// "setLocalFlag NAME to true" and the like.
void ScriptVariables::logChange(const char* kind, const String& name, const String& value) const {
    if (isLogged(VariablesCategory, LogDebug))
        log(String(menuName.empty() ? "setGlobal" : "setLocal") + kind + " " + name.toLower() +
                " to " + value,
            VariablesCategory, LogDebug);
}

void ScriptVariables::setFlag(const String& name, bool value) {
    flags[name.toLower()] = value;
    logChange("Flag", name, value ? "true" : "false");
}

bool ScriptVariables::getFlag(const String& name) const { return valueOf(flags, name); }

void ScriptVariables::storeFlag(const String& name) const {
    Registry::set(keyOf(FlagKind, name), getFlag(name) ? "1" : "0");
}

void ScriptVariables::restoreFlag(const String& name) {
    if (const auto value = stored(keyOf(FlagKind, name)))
        setFlag(name, value->toInt() != 0);
}

void ScriptVariables::setString(const String& name, const String& value) {
    strings[name.toLower()] = value;
    logChange("String", name, value);
}

String ScriptVariables::getString(const String& name) const { return valueOf(strings, name); }

void ScriptVariables::storeString(const String& name) const {
    Registry::set(keyOf(StringKind, name), getString(name));
}

void ScriptVariables::restoreString(const String& name) {
    if (const auto value = stored(keyOf(StringKind, name)))
        setString(name, *value);
}

void ScriptVariables::clear() {
    flags.clear();
    strings.clear();
}

} // namespace zel
