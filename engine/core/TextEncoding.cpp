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

/// A letter that Windows-1252 lacks, and the one that replaces it there.
struct FurtherLetter {
    uint16_t character;
    char likeness;
};

// The letters of Polish, at control codes that no text has a use for: not at the zero byte, tabs
// and line ends, nor at those that end a file or begin an escape sequence. Saves and logs never
// hold these bytes.
constexpr FurtherLetter SmallLetters[] = { // from 0x01 on
    {0x0105, 'a'}, {0x0107, 'c'}, {0x0119, 'e'}, {0x0142, 'l'},
    {0x0144, 'n'}, {0x015B, 's'}, {0x017A, 'z'}, {0x017C, 'z'}};
constexpr FurtherLetter CapitalLetters[] = { // from 0x0E on
    {0x0104, 'A'}, {0x0106, 'C'}, {0x0118, 'E'}, {0x0141, 'L'},
    {0x0143, 'N'}, {0x015A, 'S'}, {0x0179, 'Z'}, {0x017B, 'Z'}};
constexpr uint8_t FirstSmall = 0x01;
constexpr uint8_t FirstCapital = 0x0E;

/// Null for a byte that is none of these letters.
const FurtherLetter* furtherLetter(char byte) {
    const auto value = static_cast<uint8_t>(byte);
    if (value >= FirstSmall && value < FirstSmall + std::size(SmallLetters))
        return &SmallLetters[value - FirstSmall];
    if (value >= FirstCapital && value < FirstCapital + std::size(CapitalLetters))
        return &CapitalLetters[value - FirstCapital];
    return nullptr;
}

uint32_t characterOf(char byte) {
    if (const FurtherLetter* letter = furtherLetter(byte))
        return letter->character;
    const auto value = static_cast<uint8_t>(byte);
    return value >= 0x80 && value < 0xA0 ? UpperControls[value - 0x80] : value;
}

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char character) { return static_cast<uint8_t>(character) < 0x80; });
}

/// Takes the first character off a text that isn't empty; Invalid if it isn't UTF-8.
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

char textByteOf(uint32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        const char byte = static_cast<char>(character);
        return furtherLetter(byte) == nullptr ? byte : '\0';
    }
    for (char byte = FirstSmall; byte < ' '; ++byte)
        if (const FurtherLetter* letter = furtherLetter(byte);
            letter != nullptr && letter->character == character)
            return byte;
    const auto* const found =
        std::find(std::begin(UpperControls), std::end(UpperControls), character);
    const bool isThere = character != 0 && found != std::end(UpperControls);
    return isThere ? static_cast<char>(0x80 + (found - std::begin(UpperControls))) : '\0';
}

char windows1252Of(uint32_t character) {
    const char byte = textByteOf(character);
    const FurtherLetter* letter = furtherLetter(byte);
    return letter != nullptr ? letter->likeness : byte;
}

std::string windows1252Text(std::string_view text) {
    std::string result(text);
    for (char& byte : result)
        if (const FurtherLetter* letter = furtherLetter(byte))
            byte = letter->likeness;
    return result;
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
        const char byte = textByteOf(character);
        decoded += byte == '\0' && character != 0 ? '?' : byte;
        if (byte != '\0' || character == 0)
            continue;
        const LogPlace place(fileName, line);
        log(place.prefix() + "no font has the character " + codeOf(character), "Text", LogWarning);
    }
    return decoded;
}

std::string utf8Of(std::string_view text) {
    std::string converted;
    converted.reserve(text.size());
    for (const char byte : text) {
        const uint32_t character = characterOf(byte);
        if (character == 0 && byte != 0) {
            converted += '?';
        } else if (character < 0x80) {
            converted += byte;
        } else if (character < 0x800) {
            converted += static_cast<char>(0xC0 | character >> 6);
            converted += static_cast<char>(0x80 | (character & 0x3F));
        } else {
            converted += static_cast<char>(0xE0 | character >> 12);
            converted += static_cast<char>(0x80 | (character >> 6 & 0x3F));
            converted += static_cast<char>(0x80 | (character & 0x3F));
        }
    }
    return converted;
}

std::string fromUtf8(std::string_view utf8) {
    std::string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        const uint32_t character = takeCharacter(utf8);
        const char byte = character == Invalid ? '\0' : textByteOf(character);
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
