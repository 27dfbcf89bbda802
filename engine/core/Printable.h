#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zel {

/// The text without anything that controls a terminal: "?" for control characters other than line
/// ends and tabs, including those that UTF-8 writes in two bytes. Names come from saves, data files
/// and logs, and any of them may hold an escape sequence. The programs print through tools::print
/// or log(), which call this.
///
/// This header needs only the standard library: the program that makes the data files is compiled
/// without the engine.
inline std::string printable(std::string_view text) {
    std::string printed;
    printed.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<uint8_t>(text[i]);
        const uint8_t next = i + 1 < text.size() ? static_cast<uint8_t>(text[i + 1]) : 0;
        const bool isControl = (byte < 0x20 && byte != '\n' && byte != '\t') || byte == 0x7F;
        const bool isLongControl = byte == 0xC2 && next >= 0x80 && next < 0xA0;
        printed += isControl || isLongControl ? '?' : text[i];
        i += isLongControl ? 1 : 0;
    }
    return printed;
}

} // namespace zel
