#include "app/mission/MissionLine.h"

#include <algorithm>
#include <string>

MissionLine splitMissionLine(const zel::String& line) {
    const std::string_view text = line.view();
    const size_t equals = text.find('=');
    const std::string_view key = zel::trimmed(zel::trimmed(text.substr(0, equals), ' '), '\t');
    return {zel::String(key).toLower(),
            equals == text.npos ? std::string_view() : text.substr(equals + 1)};
}

zel::String blockName(const zel::String& line) { return line.trim(' ').trim('\t'); }

float missionFloat(std::string_view value) {
    for (const char character : {' ', ';', ' '})
        value = zel::trimmed(value, character);
    return zel::toFloat(value);
}

zel::String missionName(const zel::String& name) {
    std::string text(name.view());
    std::replace(text.begin(), text.end(), '"', '\'');
    return zel::String(text);
}
