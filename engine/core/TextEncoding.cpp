#include "engine/core/TextEncoding.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/LogPlace.h"

namespace zel {

namespace {

constexpr uint32_t Invalid = 0xFFFFFFFF;
constexpr uint32_t ByteOrderMarkCode = 0xFEFF;

// Unicode of the bytes 0x80 to 0x9F, in which Windows-1252 differs from Latin-1; 0 for the five
// bytes that mean nothing.
constexpr uint16_t UpperControls[] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};
static_assert(std::size(UpperControls) == 32);

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char character) { return static_cast<uint8_t>(character) < 0x80; });
}

/// Takes the first character off a text that isn't empty; Invalid if it is no UTF-8.
uint32_t takeCharacter(std::string_view& text) {
    constexpr uint32_t Least[] = {0, 0x80, 0x800, 0x10000}; // by the number of bytes that follow
    const auto first = static_cast<uint8_t>(text.front());
    text.remove_prefix(1);
    if (first < 0x80)
        return first;
    const uint32_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    if (first < 0xC0 || first > 0xF4 || text.size() < more)
        return Invalid;
    uint32_t character = first & (0x3FU >> more);
    for (uint32_t i = 0; i < more; ++i, text.remove_prefix(1)) {
        const auto next = static_cast<uint8_t>(text.front());
        if ((next & 0xC0) != 0x80)
            return Invalid;
        character = character << 6 | (next & 0x3FU);
    }
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    return character < Least[more] || character > 0x10FFFF || isSurrogate ? Invalid : character;
}

/// "U+0141".
String codeOf(uint32_t character) {
    char text[16];
    std::snprintf(text, sizeof text, "U+%04X", static_cast<unsigned>(character));
    return text;
}

} // namespace

char windows1252Of(uint32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return static_cast<char>(character);
    const auto* const found =
        std::find(std::begin(UpperControls), std::end(UpperControls), character);
    const bool isThere = character != 0 && found != std::end(UpperControls);
    return isThere ? static_cast<char>(0x80 + (found - std::begin(UpperControls))) : '\0';
}

bool isUtf8(std::string_view text) {
    while (!text.empty())
        if (takeCharacter(text) == Invalid)
            return false;
    return true;
}

std::string decodedText(std::string text, const String& fileName) {
    if (isAscii(text) || !isUtf8(text))
        return text;
    std::string decoded;
    int32_t line = 1;
    for (std::string_view rest = text; !rest.empty();) {
        const uint32_t character = takeCharacter(rest);
        if (character == ByteOrderMarkCode && decoded.empty())
            continue;
        const bool endsPair = character == '\n' && !decoded.empty() && decoded.back() == '\r';
        line += character == '\r' || (character == '\n' && !endsPair) ? 1 : 0;
        const char byte = windows1252Of(character);
        decoded += byte == '\0' && character != 0 ? '?' : byte;
        if (byte != '\0' || character == 0)
            continue;
        const LogPlace place(fileName, line);
        log(place.prefix() + "Windows-1252 lacks the character " + codeOf(character), "Text",
            LogWarning);
    }
    return decoded;
}

std::string utf8Of(std::string_view windows1252) {
    std::string text;
    text.reserve(windows1252.size());
    for (const char byte : windows1252) {
        const auto value = static_cast<uint8_t>(byte);
        const uint32_t character =
            value >= 0x80 && value < 0xA0 ? UpperControls[value - 0x80] : value;
        if (character == 0 && value != 0) {
            text += '?';
        } else if (character < 0x80) {
            text += byte;
        } else if (character < 0x800) {
            text += static_cast<char>(0xC0 | character >> 6);
            text += static_cast<char>(0x80 | (character & 0x3F));
        } else {
            text += static_cast<char>(0xE0 | character >> 12);
            text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
            text += static_cast<char>(0x80 | (character & 0x3F));
        }
    }
    return text;
}

std::string fromUtf8(std::string_view utf8) {
    std::string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        const uint32_t character = takeCharacter(utf8);
        const char byte = character == Invalid ? '\0' : windows1252Of(character);
        text += byte == '\0' && character != 0 ? '?' : byte;
    }
    return text;
}

bool readTextFile(const String& name, int32_t most, std::string& text) {
    if (!readFile(name, most, text))
        return false;
    text = decodedText(std::move(text), name);
    return true;
}

} // namespace zel
