#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/core/String.h"

namespace zel {

// Texts have one code page for all languages: Windows-1252, and at control codes the letters of
// Polish that it lacks. So names, which are Windows-1252, and the texts of any language can be
// joined and drawn without being converted.

/// The byte of a Unicode character in texts; 0 for a character that they can't have.
char textByteOf(uint32_t character);

/// The byte in Windows-1252 alone, as names have it; a letter of Polish becomes the plain one. 0
/// for a character without either.
char windows1252Of(uint32_t character);
/// The text in Windows-1252 alone, likewise.
std::string windows1252Text(std::string_view text);

/// Whether the text is UTF-8 throughout: no stray, missing, overlong or surrogate bytes.
bool isUtf8(std::string_view text);

/// The text of a file in the code page of texts. Editors save UTF-8: a text that is UTF-8
/// throughout is converted, any other is Windows-1252 already. Each character that texts can't have
/// becomes "?" and is logged with file and line. A byte order mark is dropped.
std::string decodedText(std::string text, const String& fileName);

/// The text in UTF-8, as files for other programs hold it; "?" for the five bytes that mean nothing
/// in Windows-1252.
std::string utf8Of(std::string_view text);
/// The same the other way: "?" for what texts can't have, and for bytes that aren't UTF-8.
std::string fromUtf8(std::string_view utf8);

/// Reads and decodes a text file of at most that many bytes. False, with `text` undefined, if it is
/// missing or longer or can't be read.
[[nodiscard]] bool readTextFile(const String& name, int32_t most, std::string& text);

} // namespace zel
