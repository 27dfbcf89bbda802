#include "tools/menucheck/ScriptNotes.h"

#include "engine/core/File.h"

namespace menucheck {

using zel::MenuConfigFile;
using zel::String;

namespace {

// Those of a menu's events; "onhit NAME" besides.
constexpr const char* EventSections[] = {"init",    "deinit",  "preload",   "onfirstenter",
                                         "onenter", "reset",   "onentered", "onleaving",
                                         "onleave", "onpause", "oncontinue"};
constexpr std::string_view HitMark = "onhit ";

bool isEventSection(const String& name) {
    for (const char* known : EventSections) {
        if (zel::equalsNoCase(known, name))
            return true;
    }
    return false;
}

bool isHitSection(const String& name) {
    return zel::equalsNoCase(name.view().substr(0, HitMark.size()), HitMark);
}

void checkSection(const MenuConfigFile& script, const MenuConfigFile::Section& section,
                  Findings& findings) {
    const MenuConfigFile::Line& header = script.getLines()[static_cast<size_t>(section.first) - 1];
    const Source source{script.fileOf(header), header.number.toInt()};
    const int32_t length = section.last - section.first + 1;
    if (!isEventSection(section.name) && !isHitSection(section.name) &&
        !zel::equalsNoCase(section.name, "onevent"))
        findings.add(source, String("section ") + section.name + " belongs to no event");
    else if (isEventSection(section.name) && length == 1)
        findings.add(source, String("section ") + section.name +
                                 " has one line: it would run at its first event only");
}

// The words behind a condition are joined anew, without their quotes.
void checkCondition(const MenuConfigFile::Line& line, const Source& source, Findings& findings) {
    constexpr size_t MostWords = 7;
    const std::vector<String> words = zel::splitWords(line.text);
    if (words.size() > MostWords)
        findings.add(source, "a condition carries six words, the rest is lost");
    for (const String& word : words) {
        if (word.find(' ') >= 0)
            findings.add(source, String("falls apart behind a condition: ") + word);
    }
}

void checkLines(const MenuConfigFile& script, Findings& findings) {
    const size_t firstInSection = script.getSections().empty()
                                      ? script.getLines().size()
                                      : static_cast<size_t>(script.getSections()[0].first) - 1;
    for (size_t i = 0; i < script.getLines().size(); ++i) {
        const MenuConfigFile::Line& line = script.getLines()[i];
        const Source source{script.fileOf(line), line.number.toInt()};
        if (line.text.find('\t') >= 0)
            findings.add(source, "a tab, which is no blank here");
        if (line.text.view().front() == '@')
            checkCondition(line, source, findings);
        const bool includes = line.text.left(8) == "include ";
        if (i < firstInSection && !includes) // a file of sections is included at the top
            findings.add(source, "a line before the first section never runs");
    }
}

} // namespace

ScriptNotes readNotes(const String& name, Findings& findings) {
    ScriptNotes notes;
    zel::File file(name, zel::FileRead);
    while (file.isOpen() && file.hasLine()) {
        const std::vector<String> words = zel::splitWords(zel::trimmed(file.lineView(), ' '));
        if (words.size() < 2 || words[0] != "#check")
            continue;
        const Source source{name, file.lineNumber()};
        for (size_t i = 2; i < words.size(); ++i) {
            if (words[1] == "code")
                notes.code[words[i]] = source;
            else if (words[1] == "leads")
                notes.leads[words[i]] = source;
            else if (words[1] == "overlap")
                notes.overlapping.insert(words[i]);
        }
        if (words[1] != "code" && words[1] != "leads" && words[1] != "overlap")
            findings.add(source, String("unknown note ") + words[1] + ": code, leads or overlap");
    }
    return notes;
}

void checkSections(const zel::HandledMenu& menu, MenuConfigFile& script, Findings& findings) {
    std::map<String, String> seen; // section, lowered, and the file of its last occurrence
    for (const MenuConfigFile::Section& section : script.getSections()) {
        checkSection(script, section, findings);
        const MenuConfigFile::Line& header =
            script.getLines()[static_cast<size_t>(section.first) - 1];
        const Source source{script.fileOf(header), header.number.toInt()};
        const String lowered = section.name.toLower();
        if (const auto found = seen.find(lowered);
            found != seen.end() && found->second == source.file)
            findings.add(source, String("a second section ") + section.name +
                                     " in one file: the first never runs");
        seen[lowered] = source.file;
        const String target =
            section.name.right(section.name.length() - static_cast<int32_t>(HitMark.size()));
        if (isHitSection(section.name) && menu.getLayout() != nullptr &&
            menu.getLayout()->widgets.count(target) == 0)
            findings.add(source, String("the layout has no widget ") + target);
    }
    checkLines(script, findings);
}

} // namespace menucheck
