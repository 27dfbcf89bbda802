#include "app/mission/Configuration.h"

#include <map>

#include "engine/core/File.h"
#include "engine/core/System.h"

namespace {

// Where the simulator's installer puts its folder, with a backslash at its end.
constexpr const char* InstallKey = "SOFTWARE\\Wow6432Node\\Microsoft\\Windows\\CurrentVersion\\"
                                   "Uninstall\\{1101370E-0BBC-4939-8037-2AED92A5C15C}_is1";
constexpr const char* InstallValue = "InstallLocation";

struct ConfigurationState {
    std::map<zel::String, zel::String> values;
    zel::String fileName;     // last loaded
    zel::String rofDirectory; // once found
};

ConfigurationState& configuration() {
    static ConfigurationState state;
    return state;
}

} // namespace

void Configuration::load(const zel::String& fileName) {
    configuration().fileName = fileName;
    zel::File file(fileName, zel::FileRead);
    while (file.hasLine()) {
        const std::string_view line = zel::trimmed(file.lineView(), ' ');
        const size_t equals = line.find('=');
        if (line.empty() || line.front() == '#' || equals == line.npos)
            continue;
        set(zel::String(zel::trimmed(line.substr(0, equals), ' ')),
            zel::system::nameFromUtf8(zel::trimmed(line.substr(equals + 1), ' ')));
    }
}

zel::String Configuration::get(const zel::String& key, const zel::String& defaultValue) {
    const zel::String& value = configuration().values[key.toLower()];
    return value.empty() ? defaultValue : value;
}

void Configuration::set(const zel::String& key, const zel::String& value) {
    configuration().values[key.toLower()] = value;
}

// Neither source is probed: an unusable folder is reported where it is used, with its name.
zel::String Configuration::getRofDirectory() {
    zel::String& directory = configuration().rofDirectory;
    if (directory.empty()) {
        const zel::String chosen = get(SimulatorKey, "");
        directory = chosen.empty() ? installedDirectory() : chosen + "\\";
    }
    return directory;
}

zel::String Configuration::installedDirectory() {
    return zel::system::queryRegistryValue(InstallKey, InstallValue);
}

void Configuration::reset() { configuration() = ConfigurationState(); }
