#include "engine/core/Language.h"

#include <algorithm>

#include "engine/core/Directory.h"
#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/Registry.h"
#include "engine/core/System.h"
#include "engine/core/TextEncoding.h"
#include "engine/core/TextLines.h"

namespace zel {

namespace {

constexpr int32_t MaxLanguageSize = 1 << 24; // bytes
constexpr const char* Preference = "_Language";
constexpr const char* LastResort = "en";
constexpr const char* Folder = "Language/";
constexpr const char* Ending = ".txt";

/// Whether a code names a file of the language folder and nothing else.
bool isPlainName(std::string_view name) {
    return !name.empty() && name.find_first_of("/\\:") == name.npos && name != "..";
}

/// The form for that number among those that "|" separates.
std::string_view formFor(std::string_view forms, int32_t number) {
    for (int32_t left = pluralForm(Language::getCode(), number); left > 0; --left)
        if (const size_t end = forms.find('|'); end != forms.npos)
            forms.remove_prefix(end + 1);
    return forms.substr(0, forms.find('|'));
}

void replaceFirst(std::string& text, std::string_view mark, std::string_view value) {
    const size_t place = text.find(mark);
    if (place != text.npos)
        text.replace(place, mark.size(), value);
}

} // namespace

std::map<int32_t, String> Language::table;
String Language::code;
bool Language::initialised = false;

std::map<int32_t, String> parseLanguage(std::string_view text) {
    std::map<int32_t, String> result;
    forEachLine(text, [&result](std::string_view line) {
        const size_t colon = line.find(':');
        if (colon == line.npos)
            return;
        const std::string_view number = trimmed(line.substr(0, colon), ' ');
        if (!number.empty() && number.front() >= '0' && number.front() <= '9')
            result[toInt(number)] = unescapeLineFeeds(trimmed(line.substr(colon + 1), ' '));
    });
    return result;
}

int32_t pluralForms(std::string_view code) { return code == "pl" ? 3 : 2; }

int32_t pluralForm(std::string_view code, int32_t number) {
    if (code == "fr")
        return number == 0 || number == 1 ? 0 : 1;
    if (number == 1 || code != "pl")
        return number == 1 ? 0 : 1;
    const int32_t last = number % 10;
    const bool isTeen = number / 10 % 10 == 1;
    return last >= 2 && last <= 4 && !isTeen ? 1 : 2;
}

String fillMarks(std::string_view text, const std::vector<String>& arguments) {
    std::string filled;
    for (size_t i = 0; i < text.size(); ++i) {
        const char digit = text[i] == '$' && i + 1 < text.size() ? text[i + 1] : '\0';
        if (digit < '1' || digit > '8') {
            filled += text[i];
            continue;
        }
        const auto argument = static_cast<size_t>(digit - '1');
        const String value = argument < arguments.size() ? arguments[argument] : String();
        ++i;
        const size_t end = text.substr(i + 1, 1) == "{" ? text.find('}', i) : text.npos;
        if (end == text.npos) {
            filled += value.view();
            continue;
        }
        filled += formFor(text.substr(i + 2, end - i - 2), value.toInt());
        i = end;
    }
    return String(std::move(filled));
}

String findLanguageCode(std::string_view langcodes, std::string_view identifier) {
    String result;
    forEachLine(langcodes, [&result, identifier](std::string_view line) {
        const auto words = splitAtBlanks(line);
        for (size_t i = 1; i < words.size() && result.empty(); ++i)
            if (words[i] == identifier)
                result = String(words[0]);
    });
    return result;
}

String Language::getSystemLanguage() {
    std::string content;
    if (!readFile("Language/langcodes.dat", MaxLanguageSize, content))
        return {};
    return findLanguageCode(content, std::to_string(system::userLocale()));
}

bool Language::load(const String& newCode) {
    std::string content;
    if (!isPlainName(newCode) || !readTextFile(Folder + newCode + Ending, MaxLanguageSize, content))
        return false;
    table = parseLanguage(content);
    code = newCode;
    return true;
}

bool Language::setLanguage(const String& newCode) {
    const bool isLoaded = load(newCode);
    if (isLoaded)
        log("Successfully read language " + newCode, "Language", LogInfo);
    else
        log("Failed to read language " + newCode, "Language", LogWarning);
    return isLoaded;
}

std::vector<KnownLanguage> Language::known(int32_t nameNumber) {
    std::vector<KnownLanguage> languages;
    if (!system::isDirectory(Folder))
        return languages;
    const String nameLine = String(nameNumber) + ":";
    const Directory folder(Folder, String("*") + Ending);
    for (int32_t i = 0; i < folder.count(); ++i) {
        const String file = folder.name(i);
        std::string content;
        if (!readTextFile(Folder + file, MaxLanguageSize, content))
            continue;
        KnownLanguage language{file.left(file.length() - 4), {}};
        forEachLine(content, [&](std::string_view line) {
            if (line.substr(0, nameLine.view().size()) == nameLine.view())
                language.name = trimmed(line.substr(nameLine.view().size()), ' ');
        });
        if (!language.name.empty())
            languages.push_back(language);
    }
    std::sort(languages.begin(), languages.end(),
              [](const KnownLanguage& a, const KnownLanguage& b) { return a.code < b.code; });
    return languages;
}

bool Language::choose(const String& newCode) {
    const bool isSet = setLanguage(newCode);
    if (isSet)
        Registry::set(Preference, newCode);
    return isSet;
}

void Language::init() {
    if (initialised)
        return;
    initialised = true;
    for (const String& candidate :
         {Registry::get(Preference, ""), getSystemLanguage(), String(LastResort)})
        if (!candidate.empty() && setLanguage(candidate))
            return;
}

String Language::get(int32_t number, const String& a1, const String& a2, const String& a3,
                     const String& a4, const String& a5, const String& a6, const String& a7,
                     const String& a8) {
    if (table.empty())
        init();
    const String* found = find(number);
    if (found == nullptr)
        return "(String " + String(number) + ")";
    std::string text(found->view());
    const String* arguments[] = {&a1, &a2, &a3, &a4, &a5, &a6, &a7, &a8};
    char mark[] = "$1";
    for (const String* argument : arguments) {
        replaceFirst(text, mark, *argument);
        ++mark[1];
    }
    return String(std::move(text));
}

const String* Language::find(int32_t number) {
    const auto found = table.find(number);
    return found == table.end() ? nullptr : &found->second;
}

void Language::reset() {
    table.clear();
    code = {};
    initialised = false;
}

} // namespace zel
