#include "engine/menu/script/MenuConfigFile.h"

#include <algorithm>
#include <utility>

#include "engine/core/Log.h"
#include "engine/core/LogPlace.h"
#include "engine/core/TextEncoding.h"
#include "engine/core/TextLines.h"
#include "engine/menu/script/MenuWords.h"
#include "engine/menu/script/PlatformCondition.h"
#include "engine/menu/script/ScriptCommand.h"
#include "engine/menu/style/LayoutHandler.h"
#include "engine/menu/style/ThemeHandler.h"

namespace zel {

namespace {

constexpr const char* ScriptCategory = "MenuConfigFile";
constexpr size_t DeepestInclude = 64;
constexpr int32_t LargestFile = 1 << 24; // bytes
// Nested includes multiply: a longer script is a mistake.
constexpr size_t MostLines = 100000;

std::function<void(const ScriptFault&)>& faultSink() {
    static std::function<void(const ScriptFault&)> sink;
    return sink;
}

using LineObserver = std::function<void(const MenuConfigFile&, const MenuConfigFile::Line&)>;

LineObserver& lineObserver() {
    static LineObserver observer;
    return observer;
}

} // namespace

MenuConfigFile::MenuConfigFile() {
    LayoutHandler::getInstance();
    ThemeHandler::getInstance();
}

bool MenuConfigFile::load(const String& name) {
    const bool wasRead = readInto(name);
    closeLastSection();
    return wasRead;
}

bool MenuConfigFile::readInto(const String& name) {
    std::string text;
    if (!readTextFile(name, LargestFile, text))
        return false;
    takeText(text, name);
    return true;
}

void MenuConfigFile::loadText(std::string_view text, const String& name) {
    takeText(text, name);
    closeLastSection();
}

void MenuConfigFile::takeText(std::string_view text, const String& name) {
    if (fileName.empty())
        fileName = name;
    const auto index = static_cast<int32_t>(files.size());
    files.push_back(name);
    opened.push_back(index);
    forEachNumberedLine(text, [&](std::string_view line, int32_t number) {
        const LogPlace place(name, number);
        takeLine(line, number, index);
    });
    opened.pop_back();
}

void MenuConfigFile::takeLine(std::string_view text, int32_t number, int32_t file) {
    text = trimmed(text, ' ');
    if (text.empty() || text.front() == '#')
        return;
    if (lines.size() >= MostLines) {
        if (!isFull)
            log(fileName + " has more than " + static_cast<int32_t>(MostLines) +
                    " lines; the rest is dropped",
                ScriptCategory, LogError);
        isFull = true;
        return;
    }
    lines.push_back({text, number, file});
    const auto next = static_cast<int32_t>(lines.size());
    if (text.back() == ':') {
        if (!sections.empty())
            sections.back().last = next - 2;
        sections.push_back({text.substr(0, text.size() - 1), next, next - 1});
    }
    const std::vector<String> words = splitWords(text);
    if (words.size() > 1 && equalsNoCase(words[0], "include"))
        include(words[1]);
}

// Only files that are being read are refused: a file may be included twice.
void MenuConfigFile::include(const String& name) {
    const bool isOpen = std::any_of(opened.begin(), opened.end(), [&](int32_t index) {
        return equalsNoCase(files[index], name);
    });
    const char* reason = nullptr;
    if (isOpen)
        reason = "the file includes itself";
    else if (opened.size() >= DeepestInclude)
        reason = "includes are nested too deep";
    else if (!readInto(name))
        reason = "the file can't be read";
    if (reason != nullptr)
        log(LogPlace::current()->prefix() + "include of " + name + " failed: " + reason,
            ScriptCategory, LogError);
}

void MenuConfigFile::closeLastSection() {
    if (!sections.empty())
        sections.back().last = static_cast<int32_t>(lines.size()) - 1;
}

bool MenuConfigFile::executeSection(const String& name, Menu* target) {
    menu = target;
    const auto found =
        std::find_if(sections.rbegin(), sections.rend(),
                     [&](const Section& section) { return equalsNoCase(section.name, name); });
    if (found == sections.rend())
        return false;
    // A copy: a command may run a section of this script, for instance by hitting a widget.
    const Section section = *found;
    const int32_t outerLine = currentLine;
    for (int32_t i = section.first; i <= section.last; ++i) {
        currentLine = i;
        const Line& line = lines[i];
        if (lineObserver())
            lineObserver()(*this, line);
        if (target != nullptr)
            runLine(line.text, *target);
    }
    currentLine = outerLine;
    return section.last - section.first >= 1;
}

void MenuConfigFile::executeLine(const String& line, Menu* target) {
    if (target == nullptr || line.empty())
        return;
    const int32_t outerLine = std::exchange(currentLine, -1);
    const String outerLoose = std::exchange(looseLine, line);
    runLine(line, *target);
    currentLine = outerLine;
    looseLine = outerLoose;
}

void MenuConfigFile::runLine(const String& line, Menu& target) {
    std::vector<String> words = splitWords(line);
    if (line.view().front() == '@') {
        const ConditionResult condition = resolveCondition(words);
        if (condition == ConditionResult::Unknown)
            report(String("Syntax Error ('") + words.front() + "'): ");
        if (condition != ConditionResult::Holds)
            return;
        words = splitWords(conditionalLine(words));
        if (words.empty())
            return;
    }
    runWords(words, target);
}

void MenuConfigFile::runWords(const std::vector<String>& words, Menu& target) {
    const String name = words.empty() ? String() : words.front().toLower();
    if (!name.empty() && name.view().front() == '.')
        return;
    const ScriptCommand* command = words.empty() ? nullptr : findCommand(name);
    if (command == nullptr) {
        report("Syntax Error: ");
        return;
    }
    ScriptCall call{target, words, {}};
    const auto count = static_cast<int32_t>(call.count());
    if (count < command->minimum || count > command->maximum) {
        report(String("Illegal Number of Arguments (has ") + count + " and expected between " +
               command->minimum + " and " + command->maximum + "): ");
        report("Syntax Error: ");
        return;
    }
    command->run(call);
    if (!call.badWord.empty())
        report(String("Syntax Error ('") + call.badWord + "'): ");
}

void MenuConfigFile::report(const String& text) const {
    ScriptFault fault{fileName, "", text + looseLine};
    if (currentLine >= 0) {
        const Line& line = lines[currentLine];
        fault = {fileOf(line), line.number, text + line.number + " " + line.text};
    }
    if (faultSink())
        faultSink()(fault);
    else
        console(fault.text);
}

void MenuConfigFile::setFaultSink(std::function<void(const ScriptFault&)> sink) {
    faultSink() = std::move(sink);
}

void MenuConfigFile::setLineObserver(LineObserver observer) {
    lineObserver() = std::move(observer);
}

} // namespace zel
