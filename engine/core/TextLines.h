#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "engine/core/String.h"

namespace zel {

inline constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF"; // of UTF-8

/// The text with each pair of the characters `\` and `n` as one line feed. For texts that people
/// write into scripts and language files, once, when they are read; never for names and paths.
String unescapeLineFeeds(const String& text);

/// Calls `take` with each line of a text that isn't empty, and with its number as an editor counts:
/// from 1, empty lines included. A line ends at CR, LF or both; zero bytes, and a byte order mark
/// in front, are left out.
template <typename Take> void forEachNumberedLine(std::string_view text, Take take) {
    std::string cleaned;
    if (text.find('\0') != text.npos) {
        std::copy_if(text.begin(), text.end(), std::back_inserter(cleaned),
                     [](char character) { return character != '\0'; });
        text = cleaned;
    }
    if (text.substr(0, ByteOrderMark.size()) == ByteOrderMark)
        text.remove_prefix(ByteOrderMark.size());
    for (int32_t number = 1; !text.empty(); ++number) {
        const size_t end = std::min(text.find_first_of("\r\n"), text.size());
        if (end > 0)
            take(text.substr(0, end), number);
        const size_t ending = text.substr(end, 2) == "\r\n" ? 2 : 1;
        text.remove_prefix(std::min(end + ending, text.size()));
    }
}

/// The same without the numbers.
template <typename Take> void forEachLine(std::string_view text, Take take) {
    forEachNumberedLine(text, [&take](std::string_view line, int32_t) { take(line); });
}

/// The parts between single blanks; two blanks in a row give an empty part. An empty text has no
/// parts.
inline std::vector<std::string_view> splitAtBlanks(std::string_view text) {
    std::vector<std::string_view> parts;
    if (text.empty())
        return parts;
    for (size_t end = text.find(' '); end != text.npos; end = text.find(' ')) {
        parts.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    parts.push_back(text);
    return parts;
}

} // namespace zel
