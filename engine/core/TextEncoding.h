#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/core/String.h"

namespace zel {

/// The byte of a Unicode character in Windows-1252; 0 for a character that it lacks.
char windows1252Of(uint32_t character);

/// Whether the text is UTF-8 throughout: no stray, missing, overlong or surrogate bytes.
bool isUtf8(std::string_view text);

/// The text of a file in Windows-1252. Editors save UTF-8: a text that is UTF-8 throughout is
/// converted, any other is Windows-1252 already. Each character that Windows-1252 lacks becomes "?"
/// and is logged with file and line. A byte order mark is dropped.
std::string decodedText(std::string text, const String& fileName);

/// The text in UTF-8, as files for other programs hold it; "?" for the five bytes that mean nothing
/// in Windows-1252.
std::string utf8Of(std::string_view windows1252);
/// The same the other way: "?" for what Windows-1252 lacks, and for bytes that are no UTF-8.
std::string fromUtf8(std::string_view utf8);

/// Reads and decodes a text file of at most that many bytes. False, with nothing of use in `text`,
/// if it is missing or longer or can't be read.
[[nodiscard]] bool readTextFile(const String& name, int32_t most, std::string& text);

} // namespace zel
