#include "engine/menu/script/MenuWords.h"

#include <algorithm>

namespace zel {

namespace {

struct NamedBits {
    std::string_view word;
    int32_t bits;
};

constexpr int32_t lookBit(WidgetLook look) { return 1 << look; }

constexpr NamedBits LookWords[] = {
    {"all", (1 << LookCount) - 1},       {"active", lookBit(LookActive)},
    {"inactive", lookBit(LookInactive)}, {"mouseover", lookBit(LookOver)},
    {"over", lookBit(LookOver)},         {"mousedown", lookBit(LookDown)},
    {"mousehit", lookBit(LookDown)},     {"down", lookBit(LookDown)},
    {"hit", lookBit(LookDown)},
};

constexpr NamedBits AlignmentWords[] = {
    {"left", AlignLeft}, {"hcenter", AlignHCenter}, {"center", AlignHCenter}, {"right", AlignRight},
    {"top", AlignTop},   {"vcenter", AlignVCenter}, {"bottom", AlignBottom},
};

constexpr NamedBits FlagWords[] = {
    {"1", 1},   {"on", 1}, {"true", 1},  {"yes", 1},      {"active", 1},   {"enabled", 1},
    {"off", 0}, {"no", 0}, {"false", 0}, {"inactive", 0}, {"disabled", 0},
};

template <size_t Count>
std::optional<int32_t> bitsOf(const NamedBits (&words)[Count], std::string_view word) {
    for (const NamedBits& known : words) {
        if (equalsNoCase(known.word, word))
            return known.bits;
    }
    return std::nullopt;
}

int32_t hexDigit(char character) {
    if (character >= '0' && character <= '9')
        return character - '0';
    const char low = lower(character);
    return low >= 'a' && low <= 'f' ? low - 'a' + 10 : -1;
}

} // namespace

std::vector<String> splitWords(std::string_view line) {
    std::vector<String> words;
    bool quoted = false;
    size_t start = 0;
    for (size_t at = 0; at <= line.size(); ++at) {
        if (at < line.size() && line[at] == '"')
            quoted = !quoted;
        if (at < line.size() && (quoted || line[at] != ' '))
            continue;
        const std::string_view word = trimmed(line.substr(start, at - start), '"');
        if (!word.empty())
            words.emplace_back(word);
        start = at + 1;
    }
    return words;
}

std::optional<int32_t> looksOfWord(std::string_view word) { return bitsOf(LookWords, word); }

std::optional<int32_t> alignmentOfWord(std::string_view word, bool vertical) {
    const std::optional<int32_t> bits = bitsOf(AlignmentWords, word);
    return bits && !vertical && (*bits & AlignVertical) != 0 ? std::nullopt : bits;
}

int32_t withAlignment(int32_t bits, int32_t word) {
    const int32_t direction = (word & AlignHorizontal) != 0 ? AlignHorizontal : AlignVertical;
    return (bits & ~direction) | word;
}

std::optional<uint32_t> parseColor(std::string_view word) {
    if (!word.empty() && word.front() == '#')
        word.remove_prefix(1);
    if (word.size() != 6 && word.size() != 8)
        return std::nullopt;
    uint32_t color = word.size() == 6 ? 0xFF : 0;
    for (const char character : word) {
        const int32_t digit = hexDigit(character);
        if (digit < 0)
            return std::nullopt;
        color = (color << 4) | static_cast<uint32_t>(digit);
    }
    return color;
}

std::optional<bool> parseFlag(std::string_view word) {
    const std::optional<int32_t> value = bitsOf(FlagWords, word);
    return value ? std::optional<bool>(*value != 0) : std::nullopt;
}

int32_t parseCoordinate(std::string_view word) { return std::clamp(toInt(word), -32768, 32768); }

// The comparison is false for a text that isn't a number.
float parseSeconds(std::string_view word) {
    const float seconds = toFloat(word);
    return seconds > 0.0F ? std::min(seconds, 3600.0F) : 0.0F;
}

} // namespace zel
