#pragma once

#include <map>
#include <string_view>
#include <vector>

#include "engine/core/String.h"

namespace zel {

/// A language with a table, and what it calls itself.
struct KnownLanguage {
    String code;
    String name;
};

/// The numbered texts of the screens in the language in use. One table, main thread only.
class Language {
public:
    virtual ~Language() = default;

    /// Code of the user's language according to "Language/langcodes.dat"; empty if the file doesn't
    /// list it.
    static String getSystemLanguage();
    /// Replaces the texts by those of "Language/CODE.txt". False, with nothing changed, if there is
    /// no such file or the code isn't a plain name.
    [[nodiscard]] static bool load(const String& newCode);
    /// The same, and logs the result.
    static bool setLanguage(const String& newCode);
    /// The languages in the folder "Language" whose tables have their own name under that number,
    /// by code.
    static std::vector<KnownLanguage> known(int32_t nameNumber);
    /// setLanguage() as the player's choice, which is stored. False, with nothing changed, as for
    /// load().
    static bool choose(const String& newCode);
    /// Sets a language: the one that the player chose (the preference "_Language"), then the
    /// system's, then "en"; the first whose file can be read. Runs once, until reset().
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
/// How many forms of a word the language has for numbers: 3 in Polish, 2 in the others.
int32_t pluralForms(std::string_view code);
/// The form for that number, from 0 on: in Polish those for 1, for 2 to 4, 22 to 24 and so on, and
/// for the rest; in the others, those for one and for more. Zero takes the form for one in French
/// alone.
int32_t pluralForm(std::string_view code, int32_t number);

/// The text with every "$1" replaced by the first argument, and so on up to "$8".
/// "$1{flight|flights}" is the form of the word for that number, in the language in use; the last
/// form if there are too few. A mark without an argument vanishes; marks within an argument stay.
String fillMarks(std::string_view text, const std::vector<String>& arguments);
/// The code in langcodes.dat for a locale identifier in decimal; empty if no line lists it.
String findLanguageCode(std::string_view langcodes, std::string_view identifier);

} // namespace zel
