#include "tools/menucheck/MenuCheck.h"

#include "engine/core/Directory.h"
#include "engine/core/File.h"
#include "engine/core/HighLevelScheduler.h"
#include "engine/core/Log.h"
#include "engine/core/Registry.h"
#include "engine/core/Shutdown.h"
#include "engine/core/StatesMachine.h"
#include "engine/core/System.h"
#include "engine/graphics/Font.h"
#include "engine/graphics/ImageHandler.h"
#include "engine/menu/Widget.h"
#include "tools/menucheck/ElementCheck.h"

namespace menucheck {

using zel::HandledMenu;
using zel::MenuConfigFile;
using zel::String;

namespace {

constexpr const char* ListFile = "Menus/init.lst";
constexpr const char* QuitState = "quitApp"; // the loop's own

using Ways = std::map<String, std::map<String, Source>>; // from each state to others

bool isState(const String& name) {
    return name == QuitState || zel::StatesMachine::getInstance().findState(name) != nullptr;
}

String withoutMark(const String& target) {
    const bool hasMark = target.length() > 1 && target.view().front() == '<';
    return hasMark ? target.right(target.length() - 1) : target;
}

void addWay(Ways& ways, const String& from, const String& written, const Source& source,
            Findings& findings) {
    if (written.left(7) == "http://")
        return;
    const String target = withoutMark(written);
    if (isState(target))
        ways[from].emplace(target, source);
    else
        findings.add(source, String("no such state: ") + written);
}

std::map<String, int32_t> checkList(Findings& findings) {
    std::map<String, int32_t> lines;
    zel::File list(ListFile, zel::FileRead);
    if (!list.isOpen()) {
        findings.add({ListFile, 0}, "no such file");
        return lines;
    }
    while (list.hasLine()) {
        const std::vector<String> words = zel::splitWords(zel::trimmed(list.lineView(), ' '));
        if (words.empty())
            continue;
        const Source source{ListFile, list.lineNumber()};
        if (!lines.emplace(words[0], list.lineNumber()).second)
            findings.add(source, words[0] + " is named twice");
        if (!zel::File::exists(String("Menus/") + words[0] + ".ini"))
            findings.add(source, String("no script Menus/") + words[0] + ".ini");
    }
    const zel::Directory folder("Menus", "*.ini");
    for (int32_t i = 0; i < folder.count(); ++i) {
        const String name = folder.name(i).left(folder.name(i).length() - 4);
        if (lines.count(name) == 0)
            findings.add({String("Menus/") + folder.name(i), 0},
                         String("no line of ") + ListFile + " names it");
    }
    return lines;
}

void enter(HandledMenu& menu) {
    menu.onEnter();
    menu.reset();
    menu.onEntered();
}

void leave(HandledMenu& menu) {
    menu.onLeaving();
    menu.onLeave();
}

void findWays(HandledMenu& menu, const ScriptNotes& notes, Ways& ways, Findings& findings) {
    for (const auto& [name, widget] : menu.getWidgets()) {
        if (!widget->getTransition().empty())
            addWay(ways, menu.getName(), widget->getTransition(), findings.sourceOf(name),
                   findings);
    }
    for (const auto& [state, source] : notes.leads)
        addWay(ways, menu.getName(), state, source, findings);
    const MenuConfigFile& script = menu.getScript();
    for (const MenuConfigFile::Line& line : script.getLines()) {
        const std::vector<String> words = zel::splitWords(line.text);
        const String command = words.empty() ? String() : words[0].toLower();
        const size_t target = command == "settransition"       ? 1
                              : command == "setautotransition" ? 2
                                                               : 0;
        if (target != 0 && words.size() > target)
            addWay(ways, menu.getName(), words[target], {script.fileOf(line), line.number.toInt()},
                   findings);
    }
}

/// Runs every section that a hit runs, each on a freshly entered screen.
void runHits(HandledMenu& menu) {
    std::vector<String> sections;
    for (const MenuConfigFile::Section& section : menu.getScript().getSections()) {
        const bool isHit = zel::equalsNoCase(section.name.left(6), "onhit ");
        if (isHit || zel::equalsNoCase(section.name, "onevent"))
            sections.push_back(section.name);
    }
    for (const String& section : sections) {
        enter(menu);
        menu.getScript().executeSection(section, &menu);
        leave(menu);
    }
}

void checkMenu(HandledMenu& menu, Ways& ways, Findings& findings) {
    const String file = menu.getScript().getFileName();
    if (file.empty()) // its script is missing, which is told
        return;
    const ScriptNotes notes = readNotes(file, findings);
    findings.setBetweenLines(file);
    findings.watch(&menu);
    menu.onFirstEnter();
    enter(menu);
    findings.endLine();
    checkSections(menu, menu.getScript(), findings);
    checkElements(menu, notes, findings);
    findWays(menu, notes, ways, findings);
    leave(menu);
    runHits(menu);
    menu.onPause();
    menu.onContinue();
    menu.setTransition(String());
    findings.watch(nullptr);
}

void checkWays(const Ways& ways, const std::map<String, int32_t>& lines, const String& first,
               Findings& findings) {
    std::set<String> reached{first};
    std::vector<String> waiting{first};
    while (!waiting.empty()) {
        const String state = waiting.back();
        waiting.pop_back();
        const auto found = ways.find(state);
        for (const auto& [target, source] :
             found != ways.end() ? found->second : std::map<String, Source>()) {
            if (reached.insert(target).second)
                waiting.push_back(target);
        }
    }
    for (const auto& [menu, line] : lines) {
        if (reached.count(menu) == 0)
            findings.add({ListFile, line}, menu + " can't be reached");
        if (ways.count(menu) == 0)
            findings.add({ListFile, line}, menu + " has no way out");
    }
}

void release() {
    HandledMenu::releaseMenus();
    zel::ImageHandler::getInstance().clear();
    zel::FontHandler::clear();
    zel::runShutdownSteps();
    zel::HighLevelScheduler::destroy();
    zel::StatesMachine::getInstance().reset();
}

} // namespace

Faults checkMenus(const String& folder) {
    Findings findings;
    if (!zel::system::changeDirectory(folder)) {
        findings.add({folder, 0}, "no such folder");
        return findings.sorted();
    }
    findings.setBetweenLines(ListFile);
    zel::Registry::setDeferSave(true); // scripts may store what no player has chosen
    const std::map<String, int32_t> lines = checkList(findings);
    if (!lines.empty() && HandledMenu::loadMenuList(ListFile)) {
        Ways ways;
        for (HandledMenu* menu : HandledMenu::getMenus())
            checkMenu(*menu, ways, findings);
        checkWays(ways, lines, HandledMenu::getFirstMenuName(), findings);
    }
    release();
    findings.endLine();
    zel::Registry::clear();
    zel::Registry::setDeferSave(false);
    return findings.sorted();
}

} // namespace menucheck
