#include <algorithm>

#include "app/mission/SimulatorSetting.h"
#include "app/mission/SteamFiles.h"
#include "app/mission/TextLogLines.h"
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

/// A text that has just these values.
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

void checkSettings(std::string_view text) {
    const std::string on = withTextLogOn(text);
    require(textLogValue(on) != 0, "the log is on");
    require(withTextLogOn(on) == on, "and nothing is left to do");
    const std::string set = withSetting(text, "rof.directory", "C:\\a");
    require(withSetting(set, "ROF.directory", "C:\\a") == set, "a setting is written once");
    require(set.size() >= text.size() || text.find('=') != text.npos, "nothing else is lost");
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const FuzzFolder folder; // for its silence
    const std::string_view text = asText(data, size);
    checkSteam(text);
    if (text.find('\0') == text.npos) // such a startup.cfg is refused
        checkSettings(text);
    return 0;
}
