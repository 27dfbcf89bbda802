#include <optional>

#include "engine/core/Log.h"
#include "engine/core/Registry.h"
#include "engine/menu/HandledMenu.h"

// The flags and strings of scripts, and the preferences that they are kept in.

namespace zel {

namespace {

constexpr const char* Category = "MenuConfigFile";

template <typename Value>
Value valueOf(const std::map<String, Value>& variables, const String& name) {
    const auto found = variables.find(name.toLower());
    return found != variables.end() ? found->second : Value();
}

void logChange(const char* operation, const String& name, const String& value) {
    if (isLogged(Category, LogDebug))
        log(String(operation) + " " + name + " to " + value, Category, LogDebug);
}

/// What the preferences hold under the key; empty if they don't have it.
std::optional<String> stored(const String& key) {
    return Registry::has(key) ? std::optional<String>(Registry::get(key, "")) : std::nullopt;
}

String localKey(const char* kind, const String& menu, const String& name) {
    return String("__") + kind + "__" + menu + "__" + name.toLower();
}

String globalKey(const char* kind, const String& name) {
    return String("__") + kind + "__" + name.toLower();
}

} // namespace

HandledMenu::Flags& HandledMenu::globalFlags() {
    static Flags flags;
    return flags;
}

HandledMenu::Strings& HandledMenu::globalStrings() {
    static Strings strings;
    return strings;
}

void HandledMenu::setLocalFlag(const String& flag, bool value) {
    localFlags[flag.toLower()] = value;
    logChange("setLocalFlag", flag.toLower(), value ? "true" : "false");
}

bool HandledMenu::getLocalFlag(const String& flag) const { return valueOf(localFlags, flag); }

void HandledMenu::storeLocalFlag(const String& flag) {
    Registry::set(localKey("localflag", getName(), flag), getLocalFlag(flag) ? "1" : "0");
}

void HandledMenu::restoreLocalFlag(const String& flag) {
    if (const auto value = stored(localKey("localflag", getName(), flag)))
        setLocalFlag(flag, value->toInt() != 0);
}

void HandledMenu::setGlobalFlag(const String& flag, bool value) {
    globalFlags()[flag.toLower()] = value;
    logChange("setGlobalFlag", flag.toLower(), value ? "true" : "false");
}

bool HandledMenu::getGlobalFlag(const String& flag) const { return valueOf(globalFlags(), flag); }

void HandledMenu::storeGlobalFlag(const String& flag) {
    Registry::set(globalKey("globalflag", flag), getGlobalFlag(flag) ? "1" : "0");
}

void HandledMenu::restoreGlobalFlag(const String& flag) {
    if (const auto value = stored(globalKey("globalflag", flag)))
        setGlobalFlag(flag, value->toInt() != 0);
}

void HandledMenu::setLocalString(const String& variable, const String& value) {
    localStrings[variable.toLower()] = value;
    logChange("setLocalString", variable.toLower(), value);
}

String HandledMenu::getLocalString(const String& variable) const {
    return valueOf(localStrings, variable);
}

void HandledMenu::storeLocalString(const String& variable) {
    Registry::set(localKey("localstring", getName(), variable), getLocalString(variable));
}

void HandledMenu::restoreLocalString(const String& variable) {
    if (const auto value = stored(localKey("localstring", getName(), variable)))
        setLocalString(variable, *value);
}

void HandledMenu::setGlobalString(const String& variable, const String& value) {
    globalStrings()[variable.toLower()] = value;
    logChange("setGlobalString", variable.toLower(), value);
}

String HandledMenu::getGlobalString(const String& variable) const {
    return valueOf(globalStrings(), variable);
}

void HandledMenu::storeGlobalString(const String& variable) {
    Registry::set(globalKey("globalstring", variable), getGlobalString(variable));
}

void HandledMenu::restoreGlobalString(const String& variable) {
    if (const auto value = stored(globalKey("globalstring", variable)))
        setGlobalString(variable, *value);
}

} // namespace zel
