#include "tools/menucheck/ScriptLines.h"

#include <algorithm>

#include "engine/menu/style/Layout.h"

namespace menucheck {

using zel::MenuConfigFile;
using zel::String;

namespace {

constexpr std::string_view HitMark = "onhit ";

bool isEventSection(const String& name) {
    return std::any_of(std::begin(zel::EventSections), std::end(zel::EventSections),
                       [&](const char* known) { return zel::equalsNoCase(known, name); });
}

void checkSection(const MenuConfigFile& script, const MenuConfigFile::Section& section,
                  FindingLog& findings) {
    const Source source = headerOf(script, section);
    const int32_t length = section.last - section.first + 1;
    if (!isEventSection(section.name) && hitWidgetOf(section).empty() &&
        !zel::equalsNoCase(section.name, "onevent"))
        findings.add(source, String("section ") + section.name + " belongs to no event");
    else if (isEventSection(section.name) && length == 1)
        findings.add(source, String("section ") + section.name +
                                 " has one line: it would run at its first event only");
}

// Joins the words after a condition, without their quotes.
void checkCondition(const MenuConfigFile::Line& line, bool isAllowed, const Source& source,
                    FindingLog& findings) {
    constexpr size_t MostWords = 7;
    const std::vector<String> words = zel::splitWords(line.text);
    if (!isAllowed)
        findings.add(source, "a line for some displays only (#check conditions allows them)");
    if (words.size() > MostWords)
        findings.add(source, "a condition carries six words, the rest is lost");
    for (const String& word : words) {
        if (word.find(' ') >= 0)
            findings.add(source, String("falls apart after a condition: ") + word);
    }
}

// A script ignores a value that it doesn't know, without a log line.
void checkFlag(const MenuConfigFile::Line& line, const Source& source, FindingLog& findings) {
    const std::vector<String> words = commandWords(line);
    const bool setsFlag =
        words.size() == 3 && (words[0] == "setlocalflag" || words[0] == "setglobalflag");
    if (setsFlag && !zel::parseFlag(words[2]))
        findings.add(source, String("the value ") + words[2] + " has no effect: on or off");
}

void checkLines(const MenuConfigFile& script, bool mayHaveConditions, FindingLog& findings) {
    const size_t firstInSection = script.getSections().empty()
                                      ? script.getLines().size()
                                      : static_cast<size_t>(script.getSections()[0].first) - 1;
    for (size_t i = 0; i < script.getLines().size(); ++i) {
        const MenuConfigFile::Line& line = script.getLines()[i];
        const Source source = sourceOf(script, line);
        if (line.text.find('\t') >= 0)
            findings.add(source, "a tab, which isn't a blank here");
        checkFlag(line, source, findings);
        if (line.text.view().front() == '@')
            checkCondition(line, mayHaveConditions, source, findings);
        const bool includes = zel::equalsNoCase(line.text.left(8), "include ");
        if (i < firstInSection && !includes) // a file of sections is included at the top
            findings.add(source, "a line before the first section never runs");
    }
}

} // namespace

std::vector<String> commandWords(const MenuConfigFile::Line& line) {
    std::vector<String> words = zel::splitWords(line.text);
    if (!words.empty() && words[0].view().substr(0, 1) == "@")
        words.erase(words.begin());
    if (!words.empty())
        words[0] = words[0].toLower();
    return words;
}

Source sourceOf(const MenuConfigFile& script, const MenuConfigFile::Line& line) {
    return {script.fileOf(line), line.number.toInt()};
}

Source headerOf(const MenuConfigFile& script, const MenuConfigFile::Section& section) {
    return sourceOf(script, script.getLines()[section.first - 1]);
}

std::vector<String> filesOf(const MenuConfigFile& script) {
    std::vector<String> files{script.getFileName()};
    for (const MenuConfigFile::Line& line : script.getLines()) {
        const std::vector<String> words = commandWords(line);
        if (words.size() > 1 && words[0] == "include" &&
            std::find(files.begin(), files.end(), words[1]) == files.end())
            files.push_back(words[1]);
    }
    return files;
}

String hitWidgetOf(const MenuConfigFile::Section& section) {
    const std::string_view name = section.name;
    const bool isHit = zel::equalsNoCase(name.substr(0, HitMark.size()), HitMark);
    return isHit ? String(name.substr(HitMark.size())) : String();
}

bool isInForce(const MenuConfigFile& script, const MenuConfigFile::Section& section) {
    const auto last = std::find_if(script.getSections().rbegin(), script.getSections().rend(),
                                   [&](const MenuConfigFile::Section& other) {
                                       return zel::equalsNoCase(other.name, section.name);
                                   });
    return &*last == &section;
}

void checkSections(const zel::HandledMenu& menu, const MenuConfigFile& script,
                   bool mayHaveConditions, FindingLog& findings) {
    std::map<String, String> seen; // section, lowered, and the file of its last occurrence
    for (const MenuConfigFile::Section& section : script.getSections()) {
        checkSection(script, section, findings);
        const Source source = headerOf(script, section);
        const String lowered = section.name.toLower();
        if (const auto found = seen.find(lowered);
            found != seen.end() && found->second == source.file)
            findings.add(source, String("a second section ") + section.name +
                                     " in one file: the first never runs");
        seen[lowered] = source.file;
        const String widget = hitWidgetOf(section);
        if (!widget.empty() && menu.getLayout() != nullptr &&
            menu.getLayout()->widgets.count(widget) == 0)
            findings.add(source, String("the layout has no widget ") + widget);
    }
    checkLines(script, mayHaveConditions, findings);
}

} // namespace menucheck
