#include "app/mission/MissionLine.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace {

bool isPrintable(char character) { return character >= ' ' && character <= '~'; }

// For the bytes 0xC0 to 0xFF of Windows-1252.
constexpr const char* Letters[] = {
    "A", "A", "A", "A", "Ae", "A", "Ae", "C", "E", "E", "E", "E", "I",  "I", "I",  "I",
    "D", "N", "O", "O", "O",  "O", "Oe", "x", "O", "U", "U", "U", "Ue", "Y", "Th", "ss",
    "a", "a", "a", "a", "ae", "a", "ae", "c", "e", "e", "e", "e", "i",  "i", "i",  "i",
    "d", "n", "o", "o", "o",  "o", "oe", "-", "o", "u", "u", "u", "ue", "y", "th", "y"};
static_assert(std::size(Letters) == 0x40);

/// What replaces a character of a name.
std::string missionCharacter(char character) {
    struct Replacement {
        char from;
        const char* to;
    };
    constexpr Replacement Replacements[] = {
        {'"', "'"},    {';', ","},     {'=', "-"},    {'{', "("},    {'}', ")"},
        {'\x8A', "S"}, {'\x8C', "Oe"}, {'\x8E', "Z"}, {'\x9A', "s"}, {'\x9C', "oe"},
        {'\x9E', "z"}, {'\x9F', "Y"},  {'\x91', "'"}, {'\x92', "'"}, {'\xA0', " "}};
    for (const Replacement& replacement : Replacements)
        if (replacement.from == character)
            return replacement.to;
    if (isPrintable(character))
        return {character};
    const auto byte = static_cast<uint8_t>(character);
    return byte >= 0xC0 ? Letters[byte - 0xC0] : "_";
}

} // namespace

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
    std::string text;
    for (const char character : name.view())
        text += missionCharacter(character);
    return zel::String(text);
}

bool isMissionSkin(std::string_view skin) {
    return skin.find_first_of("\"';{}/\\:") == skin.npos && skin.find("..") == skin.npos &&
           std::all_of(skin.begin(), skin.end(), isPrintable);
}
