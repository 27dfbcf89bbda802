#include "tools/menucheck/DataCheck.h"

#include <algorithm>

#include "engine/core/Directory.h"
#include "engine/core/File.h"
#include "engine/core/Language.h"
#include "engine/core/TextEncoding.h"
#include "engine/core/TextLines.h"
#include "engine/graphics/Font.h"
#include "engine/graphics/ImageHandler.h"
#include "engine/graphics/ImageIndex.h"
#include "engine/sound/SoundHandler.h"
#include "tools/menucheck/ScriptLines.h"

namespace menucheck {

using zel::String;

namespace {

constexpr int32_t LargestTable = 1 << 24; // bytes
constexpr const char* Tables = "Language/";
constexpr const char* TableEnding = ".txt";
constexpr const char* Codes = "Language/langcodes.dat";
constexpr const char* Pictures = "Pictures/";
constexpr const char* IndexEnding = ".idx";

enum class Names { Image, Font, Sound, PaintedLayout, Text };

/// What an argument of a command names.
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

/// The line of each number in a table.
std::map<int32_t, int32_t> readTable(const String& name, Findings& findings) {
    std::map<int32_t, int32_t> lines;
    std::string content;
    if (!zel::readTextFile(name, LargestTable, content))
        return lines;
    zel::forEachNumberedLine(content, [&](std::string_view line, int32_t lineNumber) {
        const Source source{name, lineNumber};
        for (const auto& [number, text] : zel::parseLanguage(line)) {
            if (!lines.emplace(number, source.line).second)
                findings.add(source, String("text ") + number + " is there twice");
            if (text.empty())
                findings.add(source, String("text ") + number + " is empty");
        }
    });
    return lines;
}

void checkCodes(Findings& findings) {
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

void NamedData::checkFiles(Findings& findings) const {
    for (const auto& [name, source] : images) {
        findings.setBetweenLines(source);
        if (zel::ImageHandler::getInstance().getImage(name) == nullptr)
            findings.add(source, String("Did not find image ") + name); // as it is logged
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

void NamedData::checkPictures(Findings& findings) const {
    if (!zel::system::isDirectory("Pictures"))
        return;
    const zel::Directory folder("Pictures", "*.*");
    for (int32_t i = 0; i < folder.count(); ++i) {
        const String file = String(Pictures) + folder.name(i);
        if (folder.isDirectory(i) || zel::equalsNoCase(file.right(4), IndexEnding))
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

void NamedData::checkLanguages(Findings& findings) const {
    checkCodes(findings);
    const std::vector<String> codes = languageCodes();
    if (codes.empty() && !texts.empty())
        findings.add(texts.begin()->second, String("no table in ") + Tables);
    for (const String& code : codes) {
        const String name = String(Tables) + code + TableEnding;
        const std::map<int32_t, int32_t> lines = readTable(name, findings);
        for (const auto& [number, source] : texts) {
            if (lines.count(number) == 0)
                findings.add(source, name + " has no text " + number);
        }
        for (const auto& [number, line] : lines) {
            if (texts.count(number) == 0)
                findings.add({name, line},
                             String("text ") + number + " is not used (#check text allows it)");
        }
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
