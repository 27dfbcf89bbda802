#pragma once

#include <map>
#include <string_view>
#include <vector>

#include "engine/core/String.h"

namespace zel {

/// The numbered texts of the screens in the language in use. One table, main thread only.
class Language {
public:
    virtual ~Language() = default;

    /// Code of the user's language by "Language/langcodes.dat"; empty if the file doesn't list it.
    static String getSystemLanguage();
    /// Replaces the texts by those of "Language/CODE.txt". False, with nothing changed, if there is
    /// no such file or the code isn't a plain name.
    [[nodiscard]] static bool load(const String& newCode);
    /// The same, and logs the result.
    static bool setLanguage(const String& newCode);
    /// Chooses a language: the user's, then the preference "_Language", then "en"; the first whose
    /// file can be read. Runs once, until reset().
    static void init();
    /// The text of a number, with the first "$1" replaced by a1, and so on up to "$8". Chooses a
    /// language first if none is loaded. On error: "(String NUMBER)".
    static String get(int32_t number, const String& a1 = {}, const String& a2 = {},
                      const String& a3 = {}, const String& a4 = {}, const String& a5 = {},
                      const String& a6 = {}, const String& a7 = {}, const String& a8 = {});
    /// The text of a number as the table has it; null if it lacks it. Chooses no language.
    static const String* find(int32_t number);
    /// Code of the language in use; empty if there is none.
    static const String& getCode() { return code; }
    /// Back to the state at the program's start.
    static void reset();

private:
    static std::map<int32_t, String> table;
    static String code;
    static bool initialised;
};

/// Reads a language file's text: lines "NUMBER: TEXT"; of two lines with one number the later one
/// counts. The characters `\` and `n` in a text become a line feed.
std::map<int32_t, String> parseLanguage(std::string_view text);
/// The text with every "$1" replaced by the first argument, and so on up to "$8". A mark without an
/// argument vanishes; marks within an argument stay.
String fillMarks(std::string_view text, const std::vector<String>& arguments);
/// The code in langcodes.dat for a locale identifier in decimal; empty if no line lists it.
String findLanguageCode(std::string_view langcodes, std::string_view identifier);

} // namespace zel
