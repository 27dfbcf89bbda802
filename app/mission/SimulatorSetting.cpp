#include "app/mission/SimulatorSetting.h"

#include <algorithm>

#include "app/mission/Configuration.h"
#include "app/mission/Settings.h"
#include "engine/core/Directory.h"
#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/SystemPlaces.h"
#include "engine/core/TextLines.h"
#include "engine/core/UserDirectory.h"
#include "engine/core/WholeFile.h"

namespace {

/// Like Configuration::load.
bool hasKey(std::string_view line, std::string_view key) {
    const size_t equals = line.find('=');
    return equals != line.npos && zel::equalsNoCase(zel::trimmed(line.substr(0, equals), ' '), key);
}

/// "# rof.directory=..." and the like.
bool showsKey(std::string_view line, std::string_view key) {
    line = zel::trimmed(line, ' ');
    return line.substr(0, 1) == "#" &&
           hasKey(line.substr(std::min(line.find_first_not_of("# "), line.size())), key);
}

/// The end of the line before that position, or of the first line of the text.
std::string_view lineEnd(std::string_view text, size_t place) {
    size_t end = text.substr(0, place).find_last_of("\r\n");
    if (end == text.npos)
        end = text.find_first_of("\r\n");
    if (end == text.npos)
        return "\n";
    if (text[end] == '\n')
        return end > 0 && text[end - 1] == '\r' ? "\r\n" : "\n";
    return text.substr(end, 2) == "\r\n" ? "\r\n" : "\r";
}

std::string withLineAt(std::string_view settings, size_t place, const std::string& line) {
    const std::string end(lineEnd(settings, place));
    const std::string_view before = settings.substr(0, place);
    const bool isAtLineStart = before.empty() || before == zel::ByteOrderMark ||
                               before.back() == '\n' || before.back() == '\r';
    return std::string(before) + (isAtLineStart ? "" : end) + line + end +
           std::string(settings.substr(place));
}

/// The positions of the lines that matter in a text.
struct Places {
    size_t value = std::string_view::npos; // of the last line with the key, after its "="
    size_t valueEnd = 0;
    size_t shown = std::string_view::npos; // after the last comment that shows it
};

Places findPlaces(std::string_view settings, std::string_view key) {
    Places places;
    const bool isMarked = settings.substr(0, zel::ByteOrderMark.size()) == zel::ByteOrderMark;
    for (size_t start = isMarked ? zel::ByteOrderMark.size() : 0; start < settings.size();) {
        const size_t end = std::min(settings.find_first_of("\r\n", start), settings.size());
        const std::string_view line = settings.substr(start, end - start);
        const size_t ending = settings.substr(end, 2) == "\r\n" ? 2 : 1;
        const size_t next = std::min(end + ending, settings.size());
        if (hasKey(line, key)) {
            places.value = start + line.find('=') + 1;
            places.valueEnd = end;
        } else if (showsKey(line, key)) {
            places.shown = next;
        }
        start = next;
    }
    return places;
}

bool holdsKey(const zel::String& file) {
    std::string content;
    return zel::readFileWhole(file, content) == zel::FileFault::None &&
           findPlaces(content, SimulatorKey).value != std::string::npos;
}

bool mayWrite(const zel::String& file) {
    return !zel::system::fileStatus(file).exists ||
           zel::system::writeFault(file) == zel::FileFault::None;
}

zel::String decidingFile() {
    for (const zel::String& file : settingsFiles())
        if (holdsKey(file))
            return zel::system::absolutePath(file);
    zel::String usual = settingsFileToWrite();
    if (mayWrite(usual))
        return usual;
    zel::Directory::create(zel::getUserDirectory());
    return zel::system::absolutePath(settingsFiles().back());
}

/// Changes a settings file and reads all settings again. What isn't read back as `folder` is
/// undone: a line loses the blanks at its end, for example.
zel::FileFault writeSetting(const zel::String& file, const zel::String& folder) {
    const std::string written = zel::system::pathInUtf8(folder);
    if (written.find_first_of("\r\n") != std::string::npos)
        return zel::FileFault::Other;
    std::string before;
    const bool existed = zel::system::fileStatus(file).exists;
    zel::FileFault fault = existed ? zel::system::writeFault(file) : zel::FileFault::None;
    if (existed && fault == zel::FileFault::None)
        fault = zel::readFileWhole(file, before);
    const std::string after = withSetting(before, SimulatorKey, written);
    if (fault == zel::FileFault::None && after != before)
        fault = zel::writeFileWhole(file, after);
    if (fault != zel::FileFault::None)
        return fault;
    reloadSettings();
    if (Configuration::get(SimulatorKey, "") == folder)
        return zel::FileFault::None;
    if (!existed)
        zel::system::removeFile(file);
    else if (after != before)
        fault = zel::writeFileWhole(file, before);
    reloadSettings();
    return fault == zel::FileFault::None ? zel::FileFault::Other : fault;
}

} // namespace

std::string withSetting(std::string_view settings, std::string_view key, std::string_view value) {
    const Places places = findPlaces(settings, key);
    if (places.value == settings.npos) {
        const size_t place = std::min(places.shown, settings.size());
        return withLineAt(settings, place, std::string(key) + "=" + std::string(value));
    }
    std::string_view old = settings.substr(places.value, places.valueEnd - places.value);
    const size_t blanks = std::min(old.find_first_not_of(' '), old.size());
    return std::string(settings.substr(0, places.value + blanks)) + std::string(value) +
           std::string(settings.substr(places.valueEnd));
}

// Writes the name in UTF-8, which is read back as the system names the folder.
SettingWritten writeSimulatorFolder(const zel::String& folder) {
    SettingWritten result;
    result.file = decidingFile();
    const zel::String full = zel::system::absolutePath(zel::withoutSeparator(folder));
    result.fault = writeSetting(result.file, full);
    zel::log(result.fault == zel::FileFault::None
                 ? "The simulator's folder is " + full + ", by " + result.file
                 : result.file + " can't be written: " + zel::faultText(result.fault),
             "Settings", result.fault == zel::FileFault::None ? zel::LogInfo : zel::LogWarning);
    return result;
}
