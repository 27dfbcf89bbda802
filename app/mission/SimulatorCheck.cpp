#include "app/mission/SimulatorCheck.h"

#include "app/career/EntireFile.h"
#include "app/mission/Configuration.h"
#include "engine/core/Log.h"

namespace {

std::string_view bare(std::string_view text) {
    for (const char character : {' ', '\t', ' '})
        text = zel::trimmed(text, character);
    return text;
}

/// The value of mission_text_log; the last line that has it wins, and none means 0.
int32_t missionTextLog(const EntireFile& settings) {
    int32_t value = 0;
    for (const zel::String& line : settings.lines) {
        const std::string_view text = bare(line);
        const size_t equals = text.find('=');
        if (equals == text.npos ||
            !zel::equalsNoCase(bare(text.substr(0, equals)), "mission_text_log"))
            continue;
        zel::console(zel::String("startup.cfg: ") + text);
        value = zel::toInt(text.substr(equals + 1));
    }
    return value;
}

} // namespace

SimulatorState checkSimulator() {
    const zel::String file = Configuration::getRofDirectory() + "data\\startup.cfg";
    const EntireFile settings(file);
    const bool exists = settings.lineCount() > 0;
    zel::console("CHECKING FILE: " + file);
    const int32_t textLog = missionTextLog(settings);
    zel::console(zel::String("FILE EXISTS: ") + (exists ? 1 : 0));
    zel::console(zel::String("MISSION_TEXT_LOG: ") + textLog);
    if (!exists)
        return SimulatorState::NotFound;
    return textLog == 0 ? SimulatorState::NoTextLog : SimulatorState::Ready;
}
