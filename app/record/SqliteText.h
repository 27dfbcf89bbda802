#pragma once

#include <sqlite3.h>
#include <string>
#include <string_view>

#include "engine/core/TextEncoding.h"

/// Passes a text of the program's code page on in UTF-8: pass(text, size, lifetime).
template <typename Pass> void passText(std::string_view text, const Pass& pass) {
    uint8_t bits = 0; // of all characters: faster than to stop at the first
    for (const char character : text) {
        const auto byte = static_cast<uint8_t>(character);
        bits |= byte < ' ' ? 0x80 : byte; // control codes may be letters of texts
    }
    const std::string converted = bits < 0x80 ? std::string() : zel::utf8Of(text);
    const std::string_view bytes = converted.empty() ? text : converted;
    const char* const start = bytes.data() != nullptr ? bytes.data() : ""; // null would be NULL
    // Only converted text is freed before the statement runs.
    pass(start, static_cast<int>(bytes.size()),
         converted.empty() ? SQLITE_STATIC : SQLITE_TRANSIENT);
}
