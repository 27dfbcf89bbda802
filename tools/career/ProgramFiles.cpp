#include "tools/career/ProgramFiles.h"

#include <algorithm>
#include <map>

#include "engine/core/Directory.h"
#include "engine/core/File.h"
#include "engine/core/Language.h"
#include "engine/core/TextEncoding.h"

namespace {

constexpr std::string_view PictureStart = "\x89PNG\r\n\x1A\n";
constexpr std::string_view PictureEnd = "IEND\xAE\x42\x60\x82";
constexpr int32_t LongestTable = 1 << 20;

bool endsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

zel::String faultOf(const zel::String& file, std::string_view content) {
    if (content.empty())
        return "it is empty";
    if (!endsWith(file.toLower(), ".png"))
        return {};
    if (content.substr(0, PictureStart.size()) != PictureStart)
        return "it is not a picture";
    return endsWith(content, PictureEnd) ? "" : "it ends early";
}

/// The picture that a description belongs to; empty for other files.
zel::String pictureOf(const zel::String& name) {
    const std::string_view text = name;
    for (const std::string_view ending : {".idx", ".fnt"})
        if (endsWith(name.toLower(), ending))
            return zel::String(text.substr(0, text.size() - ending.size())) + ".png";
    return {};
}

void lookThrough(const char* folder, FilesLook& look) {
    const zel::Directory listing(folder, "*");
    if (listing.count() == 0)
        look.faults.push_back(zel::String(folder) + ": it is missing or empty");
    for (int32_t i = 0; i < listing.count(); ++i) {
        if (listing.isDirectory(i))
            continue;
        const zel::String file = zel::String(folder) + "/" + listing.name(i);
        std::string content;
        const zel::FileFault unread = zel::readFileWhole(file, content);
        const zel::String fault =
            unread != zel::FileFault::None ? zel::faultText(unread) : faultOf(file, content);
        ++look.count;
        if (!fault.empty())
            look.faults.push_back(file + ": " + fault);
        const zel::String picture = pictureOf(listing.name(i));
        if (!picture.empty() && !listing.holds(picture))
            look.faults.push_back(file + ": " + picture + " is missing");
    }
}

using LanguageTexts = std::map<int32_t, zel::String>;

LanguageTexts readTable(const zel::String& file) {
    std::string text;
    return zel::readTextFile(file, LongestTable, text) ? zel::parseLanguage(text) : LanguageTexts();
}

} // namespace

FilesLook lookThroughScreens() {
    FilesLook look;
    for (const char* folder : {"Fonts", "Layouts", "Menus", "Pictures", "Sounds"})
        lookThrough(folder, look);
    return look;
}

FilesLook lookThroughLanguages() {
    FilesLook look;
    const LanguageTexts english = readTable("Language/en.txt");
    if (english.empty())
        look.faults.emplace_back("Language/en.txt: it is missing or has no texts");
    if (!zel::Directory("Language", "langcodes.dat").holds("langcodes.dat"))
        look.faults.emplace_back("Language/langcodes.dat: it is missing");
    const zel::Directory tables("Language", "*.txt");
    for (int32_t i = 0; i < tables.count(); ++i) {
        const zel::String file = "Language/" + tables.name(i);
        const LanguageTexts table = readTable(file);
        ++look.count;
        const auto missing = std::count_if(english.begin(), english.end(), [&](const auto& text) {
            const auto found = table.find(text.first);
            return !text.second.empty() && (found == table.end() || found->second.empty());
        });
        if (missing > 0)
            look.faults.push_back(file + ": " + static_cast<int32_t>(missing) +
                                  " texts are missing");
    }
    return look;
}
