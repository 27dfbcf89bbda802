#include "tools/menucheck/DataCheck.h"

#include <algorithm>
#include <set>

#include "engine/core/Directory.h"
#include "engine/core/File.h"
#include "engine/core/Language.h"
#include "engine/core/TextEncoding.h"
#include "engine/core/TextLines.h"
#include "engine/graphics/Font.h"
#include "engine/graphics/ImageHandler.h"
#include "engine/graphics/ImageIndex.h"
#include "engine/graphics/PictureDetail.h"
#include "engine/sound/SoundHandler.h"
#include "tools/menucheck/SaidTexts.h"
#include "tools/menucheck/ScriptLines.h"

namespace menucheck {

using zel::String;

namespace {

constexpr int32_t LargestTable = 1 << 24; // bytes
constexpr const char* Tables = "Language/";
constexpr const char* TableEnding = ".txt";
constexpr const char* ModelCode = "en"; // of the table whose marks are the model
constexpr const char* Codes = "Language/langcodes.dat";
constexpr const char* Pictures = "Pictures";
constexpr const char* Fonts = "Fonts";
constexpr const char* IndexEnding = ".idx";

enum class Names { Image, Font, Sound, PaintedLayout, Text };

/// What kind of thing a command's argument names.
struct NamingCommand {
    const char* command;
    size_t argument; // from 1
    Names names;
};
// clang-format off
constexpr NamingCommand NamingCommands[] = {
    {"setmenuoverlay", 2, Names::Image},
    {"layout.loadlayout", 1, Names::PaintedLayout},
    {"layout.definefont", 1, Names::Font},
    {"layout.definewidgetimage", 1, Names::Image},
    {"layout.definewidgetfont", 1, Names::Font},
    {"layout.definewidgetlanguagetext", 1, Names::Text},
    {"layout.definetextareafont", 1, Names::Font},
    {"theme.definefont", 1, Names::Font},
    {"theme.definewidgetimage", 2, Names::Image},
    {"theme.definewidgetfont", 2, Names::Font},
    {"theme.definewidgetsound", 2, Names::Sound},
    {"theme.definetextareafont", 2, Names::Font},
    {"theme.definebackgroundimage", 1, Names::Image},
    {"theme.defineforegroundimage", 1, Names::Image},
    {"theme.definebackgroundmenuoverlay", 1, Names::Image},
    {"theme.defineforegroundmenuoverlay", 1, Names::Image},
};
// clang-format on

String withoutEnding(const String& file) {
    const size_t point = file.view().rfind('.');
    return point == std::string_view::npos ? file : file.left(static_cast<int32_t>(point));
}

/// The images in a picture, by its index file; none if it has no such file.
std::vector<zel::ImageDescription> imagesIn(const String& picture) {
    std::string text;
    if (!zel::readTextFile(zel::imageIndexName(picture), zel::MaxIndexSize, text))
        return {};
    return zel::parseImageIndex(text, zel::LifetimeShort, 1).images;
}

/// Reports pictures that large windows don't show, since they aren't twice as large.
void checkDoubledIn(const char* folderName, FindingLog& findings) {
    if (!zel::system::isDirectory(folderName))
        return;
    const zel::Directory folder(folderName, "*.*");
    for (int32_t i = 0; i < folder.count(); ++i) {
        const String plain = String(folderName) + "/" + folder.name(i);
        const String doubled = zel::PictureDetail::doubledName(plain);
        if (!zel::File::exists(doubled))
            continue;
        const String fault = zel::PictureDetail::doubledFault(zel::pictureSizeOf(doubled), plain);
        if (!fault.empty())
            findings.add({doubled, 0}, fault);
    }
}

/// A text of a table, and its line.
struct LanguageEntry {
    String text;
    int32_t line;
};
using LanguageTable = std::map<int32_t, LanguageEntry>;

LanguageTable readTable(const String& name, FindingLog& findings) {
    LanguageTable table;
    std::string content;
    if (!zel::readTextFile(name, LargestTable, content))
        return table;
    zel::forEachNumberedLine(content, [&](std::string_view line, int32_t lineNumber) {
        const Source source{name, lineNumber};
        for (const auto& [number, text] : zel::parseLanguage(line)) {
            if (!table.emplace(number, LanguageEntry{text, source.line}).second)
                findings.add(source, String("text ") + number + " occurs twice");
            if (text.empty())
                findings.add(source, String("text ") + number + " is empty");
        }
    });
    return table;
}

/// The marks of a text as people read them: "$1 $2".
String shownMarks(const std::set<char>& marks) {
    String shown;
    for (const char mark : marks)
        shown += String(shown.empty() ? "$" : " $") + String(mark);
    return shown.empty() ? "none" : shown;
}

/// Reports words for a number whose number of forms differs from the language's.
void checkForms(const String& name, const String& code, const LanguageTable& table,
                FindingLog& findings) {
    const int32_t wanted = zel::pluralForms(code);
    for (const auto& [number, entry] : table) {
        const std::string_view text = entry.text;
        for (size_t at = text.find('{'); at != text.npos; at = text.find('{', at + 1)) {
            const std::string_view forms = text.substr(at, text.find('}', at) - at);
            const auto count =
                1 + static_cast<int32_t>(std::count(forms.begin(), forms.end(), '|'));
            if (at < 2 || text[at - 2] != '$' || text.find('}', at) == text.npos)
                findings.add({name, entry.line}, String("text ") + number +
                                                     " has a brace that isn't a word for a number");
            else if (count != wanted)
                findings.add({name, entry.line}, String("text ") + number + " has " + count +
                                                     " forms of a word, the language " + wanted);
        }
    }
}

/// Reports texts whose marks differ from the model table's. Of a mark that occurs twice only the
/// first is replaced.
void checkMarks(const String& name, const LanguageTable& table, const String& modelName,
                const LanguageTable& model, FindingLog& findings) {
    for (const auto& [number, entry] : table) {
        const std::vector<char> marks = marksOf(entry.text);
        const std::set<char> each(marks.begin(), marks.end());
        if (each.size() < marks.size())
            findings.add({name, entry.line}, String("text ") + number + " has a mark twice");
        const auto other = model.find(number);
        if (other == model.end())
            continue;
        const std::vector<char> wanted = marksOf(other->second.text);
        if (const std::set<char> wantedEach(wanted.begin(), wanted.end()); each != wantedEach)
            findings.add({name, entry.line}, String("text ") + number + " has the marks " +
                                                 shownMarks(each) + ", in " + modelName + " " +
                                                 shownMarks(wantedEach));
    }
}

void checkCodes(FindingLog& findings) {
    zel::File file(Codes, zel::FileRead);
    while (file.isOpen() && file.hasLine()) {
        const std::vector<String> words = zel::splitWords(zel::trimmed(file.lineView(), ' '));
        if (!words.empty() && !zel::File::exists(String(Tables) + words[0] + TableEnding))
            findings.add({Codes, file.lineNumber()},
                         String("no table ") + Tables + words[0] + TableEnding);
    }
}

} // namespace

void NamedData::gather(const zel::MenuConfigFile& script, const ScriptNotes& notes) {
    for (const zel::MenuConfigFile::Line& line : script.getLines()) {
        const std::vector<String> words = commandWords(line);
        for (const NamingCommand& row : NamingCommands) {
            if (words.size() <= row.argument || words[0] != row.command)
                continue;
            const String& name = words[row.argument];
            const Source source = sourceOf(script, line);
            if (row.names == Names::Image)
                images.emplace(name, source);
            else if (row.names == Names::Font)
                fonts.emplace(name, source);
            else if (row.names == Names::Sound)
                sounds.emplace(name, source);
            else if (row.names == Names::Text)
                texts.emplace(name.toInt(), source);
            if (row.names == Names::Image || row.names == Names::PaintedLayout)
                shown.insert(name.toLower());
        }
    }
    shown.insert(notes.pictures.begin(), notes.pictures.end());
    texts.insert(notes.texts.begin(), notes.texts.end());
}

void NamedData::checkFiles(FindingLog& findings) const {
    for (const auto& [name, source] : images) {
        findings.setBetweenLines(source);
        if (zel::ImageHandler::getInstance().getImage(name) == nullptr)
            findings.add(source, String("Did not find image ") + name); // worded as the log does
    }
    for (const auto& [name, source] : fonts) {
        findings.setBetweenLines(source);
        if (zel::FontHandler::getFont(name) == nullptr)
            findings.add(source, String("no font ") + name);
    }
    for (const auto& [name, source] : sounds) {
        findings.setBetweenLines(source);
        if (!zel::SoundHandler::getInstance().load(name))
            findings.add(source, String("no sound ") + name);
    }
    findings.endLine();
}

void NamedData::checkPictures(FindingLog& findings) const {
    checkDoubledIn(Pictures, findings);
    checkDoubledIn(Fonts, findings);
    if (!zel::system::isDirectory(Pictures))
        return;
    const zel::Directory folder(Pictures, "*.*");
    std::set<String> doubled; // shown in place of the plain pictures, on large windows
    for (int32_t i = 0; i < folder.count(); ++i)
        doubled.insert(zel::PictureDetail::doubledName(folder.name(i)));
    for (int32_t i = 0; i < folder.count(); ++i) {
        const String file = String(Pictures) + "/" + folder.name(i);
        if (folder.isDirectory(i) || zel::equalsNoCase(file.right(4), IndexEnding) ||
            doubled.count(folder.name(i)) != 0)
            continue;
        const std::vector<zel::ImageDescription> inside = imagesIn(file);
        const bool isShown =
            shown.count(file.toLower()) != 0 ||
            std::any_of(inside.begin(), inside.end(), [&](const zel::ImageDescription& image) {
                return shown.count(image.name.toLower()) != 0;
            });
        if (!isShown)
            findings.warn({file, 0}, "nothing shows it (#check picture allows it)");
    }
}

void NamedData::checkLanguages(FindingLog& findings) const {
    checkCodes(findings);
    const std::vector<String> codes = languageCodes();
    if (codes.empty() && !texts.empty())
        findings.add(texts.begin()->second, String("no table in ") + Tables);
    std::map<String, LanguageTable> tables; // by the names of their files
    ScriptNotes notes;
    for (const String& code : codes) {
        const String name = String(Tables) + code + TableEnding;
        tables[name] = readTable(name, findings);
        checkForms(name, code, tables[name], findings);
        readNotesOf(name, notes, findings);
    }
    std::map<int32_t, Source> used = texts;
    used.insert(notes.texts.begin(), notes.texts.end());
    const auto english = tables.find(String(Tables) + ModelCode + TableEnding);
    const auto model = english != tables.end() ? english : tables.begin();
    for (const auto& [name, table] : tables) {
        for (const auto& [number, source] : used) {
            if (table.count(number) == 0)
                findings.add(source, name + " has no text " + number);
        }
        for (const auto& [number, entry] : table) {
            if (used.count(number) == 0)
                findings.add({name, entry.line},
                             String("text ") + number + " is not used (#check text allows it)");
        }
        checkMarks(name, table, model->first, model->second, findings);
    }
}

std::vector<String> languageCodes() {
    std::vector<String> codes;
    if (!zel::system::isDirectory("Language"))
        return codes;
    const zel::Directory folder("Language", String("*") + TableEnding);
    for (int32_t i = 0; i < folder.count(); ++i)
        codes.push_back(withoutEnding(folder.name(i)));
    return codes;
}

} // namespace menucheck
