#include <algorithm>

#include "app/mission/SimulatorSetting.h"
#include "app/mission/SteamFiles.h"
#include "app/mission/TextLogLines.h"
#include "engine/core/TextLines.h"
#include "fuzz/FuzzFile.h"

namespace {

std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char character : text) {
        if (character == '"' || character == '\\')
            result += '\\';
        result += character;
    }
    return result + "\" ";
}

/// A text that has exactly these values.
std::string writtenAgain(const std::vector<SteamValue>& values) {
    std::string text;
    for (const SteamValue& one : values) {
        for (size_t i = 0; i + 1 < one.keys.size(); ++i)
            text += quoted(one.keys[i]) + "{ ";
        text += quoted(one.keys.back()) + quoted(one.value);
        text += std::string(one.keys.size() - 1, '}');
    }
    return text;
}

void checkSteam(std::string_view text) {
    const std::vector<SteamValue> values = readSteamText(text);
    const std::vector<SteamValue> again = readSteamText(writtenAgain(values));
    const auto isSame = [](const SteamValue& a, const SteamValue& b) {
        return a.keys == b.keys && a.value == b.value;
    };
    require(std::equal(values.begin(), values.end(), again.begin(), again.end(), isSame),
            "what was read can be written and read again");
    steamLibraries(text);
    const zel::String folder = steamInstallFolder(text);
    require(folder.view().find_first_of("/\\:") == std::string_view::npos && folder != "..",
            "a game's folder is one in steamapps/common");
}

std::string_view trimmedOf(std::string_view text, std::string_view letters) {
    const size_t first = std::min(text.find_first_not_of(letters), text.size());
    return text.substr(first, text.find_last_not_of(letters) + 1 - first);
}

/// The lines of a text without those that have the key. The end of the last one is left out: a line
/// that is added after it may need one.
std::string withoutKey(std::string_view text, std::string_view key) {
    if (text.substr(0, zel::ByteOrderMark.size()) == zel::ByteOrderMark)
        text.remove_prefix(zel::ByteOrderMark.size());
    std::string rest;
    while (!text.empty()) {
        const size_t end = std::min(text.find_first_of("\r\n"), text.size());
        const size_t next = std::min(end + (text.substr(end, 2) == "\r\n" ? 2 : 1), text.size());
        const size_t equals = text.substr(0, end).find('=');
        if (equals == text.npos ||
            !zel::equalsNoCase(trimmedOf(text.substr(0, equals), " \t"), key))
            rest += text.substr(0, next);
        text.remove_prefix(next);
    }
    return rest.substr(0, rest.find_last_not_of("\r\n") + 1);
}

void checkTextLog(std::string_view text) {
    constexpr std::string_view Key = "mission_text_log";
    const std::string on = withTextLogOn(text);
    require(textLogValue(on) != 0, "the log is on");
    require(withTextLogOn(on) == on, "and nothing is left to do");
    const std::string before = withoutKey(text, Key);
    const std::string after = withoutKey(on, Key);
    std::string added = after.substr(std::min(before.size(), after.size()));
    added.erase(std::remove_if(added.begin(), added.end(),
                               [](char letter) { return letter == '\r' || letter == '\n'; }),
                added.end());
    require(after.substr(0, before.size()) == before, "the other lines stay");
    require(added.empty() || added == "[KEY = system][END]", "nothing else is added");
}

void checkSetting(std::string_view text) {
    constexpr std::string_view Key = "rof.directory";
    const std::string set = withSetting(text, Key, "C:\\a");
    require(withSetting(set, "ROF.directory", "C:\\a") == set, "a setting is written once");
    require(withoutKey(set, Key) == withoutKey(text, Key), "the other lines stay");
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const FuzzFolder folder; // for its silence
    const std::string_view text = asText(data, size);
    checkSteam(text);
    if (text.find('\0') == text.npos) { // such a startup.cfg is refused
        checkTextLog(text);
        checkSetting(text);
    }
    return 0;
}
