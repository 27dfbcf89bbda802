#include "tools/menucheck/MenuCheck.h"

#include "engine/core/Directory.h"
#include "engine/core/File.h"
#include "engine/core/Language.h"
#include "engine/core/Registry.h"
#include "engine/core/Shutdown.h"
#include "engine/graphics/Font.h"
#include "engine/graphics/ImageHandler.h"
#include "engine/menu/MenuOverlay.h"
#include "engine/menu/style/LayoutHandler.h"
#include "engine/menu/style/ThemeHandler.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/HighLevelScheduler.h"
#include "engine/window/StatesMachine.h"
#include "tools/menucheck/DataCheck.h"
#include "tools/menucheck/ElementCheck.h"
#include "tools/menucheck/ScriptLines.h"
#include "tools/menucheck/Ways.h"

namespace menucheck {

using zel::HandledMenu;
using zel::MenuConfigFile;
using zel::String;

namespace {

constexpr const char* ListFile = "Menus/init.lst";

using Screens = std::map<String, Source>; // the lines of the list

/// The results of all screens in all languages.
struct Survey {
    FindingLog& findings;
    Ways ways;
    NamedData data;
    // A note in a file that several screens include may apply to any of them.
    std::map<std::tuple<String, int32_t, String>, bool>
        noted{}; // true once a screen has the element
    std::set<String> stretched{};
};

Screens checkList(FindingLog& findings) {
    Screens screens;
    zel::File list(ListFile, zel::FileRead);
    if (!list.isOpen()) {
        findings.add({ListFile, 0}, "no such file");
        return screens;
    }
    while (list.hasLine()) {
        const std::vector<String> words = zel::splitWords(zel::trimmed(list.lineView(), ' '));
        if (words.empty())
            continue;
        const Source source{ListFile, list.lineNumber()};
        if (!screens.emplace(words[0], source).second)
            findings.add(source, words[0] + " is named twice");
        if (!zel::File::exists(String("Menus/") + words[0] + ".ini"))
            findings.add(source, String("no script Menus/") + words[0] + ".ini");
    }
    const zel::Directory folder("Menus", "*.ini");
    for (int32_t i = 0; i < folder.count(); ++i) {
        const String name = folder.name(i).left(folder.name(i).length() - 4);
        if (screens.count(name) == 0)
            findings.add({String("Menus/") + folder.name(i), 0},
                         String("no line of ") + ListFile + " names it");
    }
    return screens;
}

/// Checks one screen: enters it, runs it and leaves it once for each event that can happen on it.
class ScreenRun {
public:
    ScreenRun(HandledMenu& menu, const ScriptNotes& notes, Survey& survey)
        : menu(menu), notes(notes), survey(survey) {}

    void runAll() {
        survey.findings.setBetweenLines({menu.getScript().getFileName(), 0});
        checkSections(menu, menu.getScript(), notes.mayHaveConditions, survey.findings);
        menu.onFirstEnter();
        run({});
        runHits();
        survey.findings.watch(nullptr);
        menu.onPause();
        menu.onContinue();
        findWaysOfScript();
        checkNames();
    }

private:
    /// Enters the screen, runs the sections and checks the elements that result.
    void run(const std::vector<String>& sections) {
        survey.findings.watch(&menu);
        menu.onEnter();
        menu.reset();
        menu.onEntered();
        for (const String& section : sections)
            menu.getScript().executeSection(section, &menu);
        survey.findings.endLine();
        checkElements(menu, notes, survey.findings);
        for (const auto& [name, widget] : menu.getWidgets()) {
            seen.insert(name);
            if (!widget->getTransition().empty())
                survey.ways.add(menu.getName(), widget->getTransition(),
                                survey.findings.sourceOf(name), survey.findings);
        }
        for (const auto& [name, area] : menu.getTextAreas())
            seen.insert(name);
        menu.onLeaving();
        menu.onLeave();
        menu.setTransition(String());
    }

    void runHits() {
        const std::vector<MenuConfigFile::Section>& sections = menu.getScript().getSections();
        for (const MenuConfigFile::Section& section : sections) {
            if (!hitWidgetOf(section).empty() && isInForce(menu.getScript(), section))
                run({section.name, "onevent"});
            else if (zel::equalsNoCase(section.name, "onevent"))
                run({section.name});
        }
    }

    // Targets that sections set are read from the script, since a run keeps only the last one.
    void findWaysOfScript() {
        for (const auto& [state, source] : notes.leads)
            survey.ways.add(menu.getName(), state, source, survey.findings);
        const MenuConfigFile& script = menu.getScript();
        for (const MenuConfigFile::Section& section : script.getSections()) {
            for (int32_t i = section.first; i <= section.last && isInForce(script, section); ++i) {
                const MenuConfigFile::Line& line = script.getLines()[i];
                const std::vector<String> words = commandWords(line);
                if (words.size() == 2 && words[0] == "settransition")
                    addWay(words[1], sourceOf(script, line));
                else if (words.size() == 3 && words[0] == "setautotransition")
                    addWay(words[2], sourceOf(script, line));
            }
        }
    }

    void addWay(const String& target, const Source& source) {
        survey.ways.add(menu.getName(), target, source, survey.findings);
    }

    // Compares the elements that notes and sections name with all elements that existed at some
    // time.
    void checkNames() {
        for (const ScriptNotes::NamedElement& note : notes.named) {
            bool& isMet = survey.noted[{note.source.file, note.source.line, note.name}];
            isMet = isMet || seen.count(note.name) != 0;
        }
        const MenuConfigFile& script = menu.getScript();
        for (const MenuConfigFile::Section& section : script.getSections()) {
            const String widget = hitWidgetOf(section);
            if (!widget.empty() && seen.count(widget) == 0)
                survey.findings.add(headerOf(script, section),
                                    String("the screen never has a widget ") + widget);
        }
    }

    HandledMenu& menu;
    const ScriptNotes& notes;
    Survey& survey;
    std::set<String> seen; // of all elements that existed at some time
};

/// Loads all screens in the language that is set, and runs each.
void checkScreens(Survey& survey) {
    survey.findings.setBetweenLines({ListFile, 0});
    if (!HandledMenu::loadMenuList(ListFile))
        return;
    std::map<HandledMenu*, ScriptNotes> notes;
    for (HandledMenu* menu : HandledMenu::getMenus()) {
        const MenuConfigFile& script = menu->getScript();
        if (script.getFileName().empty()) // a missing script is logged already
            continue;
        ScriptNotes& read = notes[menu] = readNotes(script, survey.findings);
        survey.stretched.insert(read.stretched.begin(), read.stretched.end());
        survey.data.gather(script, read);
    }
    for (HandledMenu* menu : HandledMenu::getMenus()) {
        const auto found = notes.find(menu);
        if (found == notes.end())
            continue;
        found->second.stretched = survey.stretched;
        ScreenRun(*menu, found->second, survey).runAll();
    }
}

/// Deletes the screens. Images and fonts stay loaded: they are the same in every language.
void releaseScreens(FindingLog& findings) {
    findings.watch(nullptr);
    HandledMenu::releaseMenus();
    HandledMenu::releaseShared();
    zel::LayoutHandler::release();
    zel::ThemeHandler::release();
    zel::MenuOverlay::release();
    zel::HighLevelScheduler::destroy();
    zel::StatesMachine::getInstance().reset();
}

void checkAll(const Screens& screens, FindingLog& findings) {
    Survey survey{findings, {}, {}};
    std::vector<String> codes = languageCodes();
    if (codes.empty())
        codes.emplace_back(); // runs with the numbers of its texts
    for (const String& code : codes) {
        findings.setBetweenLines({String("Language/") + code + ".txt", 0});
        if (!code.empty())
            zel::Language::setLanguage(code);
        checkScreens(survey);
        if (code == codes.back()) { // transitions lead to registered states
            survey.ways.check(screens, HandledMenu::getFirstMenuName(), findings);
            survey.data.checkFiles(findings);
        }
        findings.setBetweenLines({ListFile, 0});
        releaseScreens(findings);
    }
    for (const auto& [note, isMet] : survey.noted) {
        const auto& [file, line, name] = note;
        if (!isMet)
            findings.add({file, line}, String("no screen has the element ") + name);
    }
    survey.data.checkPictures(findings);
    survey.data.checkLanguages(findings);
}

} // namespace

tools::Findings checkMenus(const String& folder) {
    FindingLog findings;
    if (!zel::system::changeDirectory(folder)) {
        findings.add({folder, 0}, "no such folder");
        return findings.sorted();
    }
    zel::Registry::clear(); // independent of a player's preferences
    zel::Registry::setDeferSave(true);
    zel::Language::reset();
    const Screens screens = checkList(findings);
    if (!screens.empty())
        checkAll(screens, findings);
    zel::ImageHandler::getInstance().clear();
    zel::FontHandler::clear();
    zel::runShutdownSteps();
    zel::Language::reset();
    findings.endLine();
    zel::Registry::clear();
    zel::Registry::setDeferSave(false);
    return findings.sorted();
}

} // namespace menucheck
