#include "engine/core/Registry.h"

#include <map>

#include "engine/core/Directory.h"
#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"
#include "engine/core/WholeFile.h"

namespace zel {

namespace {

constexpr int32_t MaxPreferencesSize = 1 << 24; // bytes

struct RegistryState {
    std::map<String, String> values; // in the order of the keys' bytes, as in the file
    bool loaded = false;
    bool deferSave = false;
    String damagedFile; // the file read last, if it was not whole
};

RegistryState& registryState() {
    static RegistryState state;
    return state;
}

String preferencesFile() { return getUserDirectory() + "prefs.dat"; }

void appendText(std::string& content, const String& text) {
    const auto length = static_cast<uint32_t>(text.length()) + 1;
    for (int shift = 0; shift < 32; shift += 8)
        content += static_cast<char>(length >> shift);
    content += text.view();
    content += '\0';
}

/// Takes one text off the front. False, taking nothing, if the length exceeds the rest.
bool takeText(std::string_view& content, String& text) {
    if (content.size() < 4)
        return false;
    uint32_t length = 0;
    for (size_t i = 0; i < 4; ++i)
        length |= uint32_t(static_cast<unsigned char>(content[i])) << (8 * i);
    if (length == 0 || length > content.size() - 4)
        return false;
    text = String(arrayText(content.data() + 4, length));
    content.remove_prefix(4 + length);
    return true;
}

/// Adds the entries of a file's content to the values. False if the content ends within one.
bool takeEntries(std::string_view content, std::map<String, String>& values) {
    while (!content.empty()) {
        String key;
        String value;
        if (!takeText(content, key) || !takeText(content, value))
            return false;
        values[key] = value;
    }
    return true;
}

} // namespace

String Registry::get(const String& key, const String& defaultValue) {
    if (!registryState().loaded)
        load();
    const auto& values = registryState().values;
    const auto found = values.find(key);
    return found != values.end() ? found->second : defaultValue;
}

bool Registry::has(const String& key) {
    if (!registryState().loaded)
        load();
    return registryState().values.count(key) != 0;
}

void Registry::set(const String& key, const String& value) {
    if (!registryState().loaded)
        load();
    registryState().values[key] = value;
    if (!registryState().deferSave)
        save();
}

void Registry::setDeferSave(bool defer) { registryState().deferSave = defer; }

void Registry::load() {
    registryState().loaded = true;
    if (applicationTitle().empty())
        console("Warning: ZelAppInfo::getAppName() was not set");
    const String name = preferencesFile();
    registryState().damagedFile = "";
    if (!system::fileStatus(name).exists)
        return; // the first run
    std::string content;
    const bool isRead = readFile(name, MaxPreferencesSize, content);
    if (isRead && takeEntries(content, registryState().values))
        return;
    registryState().damagedFile = name;
    log(isRead ? "prefs.dat is damaged; it is read as far as it goes" : "prefs.dat can't be read",
        "Registry", LogWarning);
}

void Registry::save() {
    Directory::create(getUserDirectory());
    std::string content;
    for (const auto& [key, value] : registryState().values) {
        appendText(content, key);
        appendText(content, value);
    }
    // A damaged file doesn't replace the last whole one as ".bak".
    const String name = preferencesFile();
    String& damaged = registryState().damagedFile;
    const bool replacesDamaged = !damaged.empty() && damaged == name;
    const FileFault fault =
        writeFileWhole(name, content, name + (replacesDamaged ? ".damaged" : ".bak"));
    if (fault != FileFault::None) {
        console("warning: cannot write " + name);
        log("warning: cannot write " + name + ": " + faultText(fault), "Registry", LogError);
    } else if (replacesDamaged) {
        damaged = "";
    }
}

void Registry::clear() { registryState().values.clear(); }
void Registry::reset() { registryState() = RegistryState(); }

} // namespace zel
