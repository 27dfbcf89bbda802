#include "app/screens/MenuSimulator.h"

#include "app/mission/Configuration.h"
#include "app/mission/Settings.h"
#include "app/mission/SimulatorCheck.h"
#include "app/mission/SimulatorSetting.h"
#include "app/mission/TextLogSwitch.h"
#include "app/screens/OwnStandIn.h"
#include "app/screens/PathText.h"
#include "app/screens/ScreenSounds.h"
#include "app/screens/ScreenWording.h"
#include "app/screens/SimulatorPlaces.h"
#include "engine/menu/StandardMenu.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr size_t FileLetters = 50;

const char* markKind(CheckMark mark) {
    return mark == CheckMark::Yes ? "tickyes" : mark == CheckMark::No ? "tickno" : "tickopen";
}

} // namespace

void MenuSimulator::onEnter() {
    readSettings();
    endsProgram = checkSimulator() != SimulatorState::Ready;
    setText("menuBack", textOf(endsProgram ? wording::QuitProgram : wording::GoBack));
    message = ownFocus = unwritable = {};
    secondPress.begin(); // the page of the folders has "Back" where this one has "Quit"
    if (!places.takeKept())
        places.lookAgain();
    places.update();
    wasSearching = places.isSearching();
    showPlaces();
    showChecks();
    focusWhereItMatters();
}

void MenuSimulator::readSettings() {
    const zel::String setFolder = Configuration::get(SimulatorKey, "");
    isGone = !setFolder.empty() && !holdsSimulator(setFolder);
    setText("standinText",
            textOf(OwnStandIn::isChosen() ? wording::StandInFlies : wording::StandInOffered));
}

void MenuSimulator::update() {
    const bool hasEnded = wasSearching && !places.isSearching();
    wasSearching = places.isSearching();
    if (!places.update() && !hasEnded)
        return;
    showPlaces();
    showChecks();
    focusWhereItMatters();
}

void MenuSimulator::showPlaces() {
    const std::vector<SimulatorPlace>& found = places.getPlaces();
    rows.resize(*menu, found.size());
    for (size_t i = 0; i < found.size(); ++i) {
        setWidgetKind(rows.name("row", i), i == places.getChosen() ? "slipOn" : "slipOff");
        setText(rows.name("row", i), placeText(found[i]));
    }
    rows.show(*menu, places.getChosen());
}

void MenuSimulator::showChecks() {
    checks = checkSimulatorIn(places.chosenFolder());
    showWords();
}

void MenuSimulator::showWords() {
    const bool hasPlace = !places.getPlaces().empty();
    const bool mustWrite = hasPlace && unwritable == places.chosenFolder();
    const std::vector<CheckLine> lines = checkLines(checks, hasPlace, mustWrite);
    for (size_t i = 0; i < lines.size(); ++i) {
        const zel::String name = zel::String("check") + int32_t(i + 1);
        setWidgetKind(name + "mark", markKind(lines[i].mark));
        setActive(name + "mark", false); // it isn't a button
        setText(name, lines[i].text);
    }
    setVisible("switchOn", hasPlace && checks.isThere && checks.textLog == TextLog::Off);
    setVisible("ready", isReady());
    setVisible("open", !isReady());
    setActive("menuButton1", isReady());
    setText("status", statusText(lines, hasPlace, places.isSearching()));
    setText("text1", message.empty() ? foundText(places.getPlaces(), places.isSearching(), isGone)
                                     : message);
}

// Only until the player has moved the focus himself.
void MenuSimulator::focusWhereItMatters() {
    const auto* screen = dynamic_cast<zel::StandardMenu*>(menu);
    if (screen == nullptr || screen->getFocus().getName() != ownFocus)
        return;
    const zel::Widget* plate = getWidget("switchOn");
    if (places.getPlaces().empty())
        ownFocus = "lookElsewhere";
    else if (plate != nullptr && plate->isVisible())
        ownFocus = "switchOn";
    else
        ownFocus = rows.name("row", places.getChosen());
    setFocus(ownFocus);
}

void MenuSimulator::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    const zel::String name = widget->getName();
    const int32_t place = rows.indexOf(*widget);
    const bool byKey = widget->isFocused();
    widget->reset(); // the screen may stay
    if (menu->isTransitionRequested())
        return;
    message = {};
    if (place >= 0)
        choose(size_t(place), byKey);
    else if (name == "switchOn")
        switchTextLogOn();
    else if (name == "lookAgain")
        lookAgain();
    else if (name == "lookElsewhere")
        setTransition("MenuSimulatorFolder");
    else if (name == "standin")
        useStandIn();
    else if (name == "menuButton1")
        useChosen();
    else if (name == "menuBack")
        leave();
}

// A key presses the chosen place to use it; the pointer only chooses.
void MenuSimulator::choose(size_t place, bool byKey) {
    const bool uses = byKey && place == places.getChosen();
    places.choose(place);
    showPlaces();
    showChecks();
    if (uses && isReady())
        useChosen();
}

// The player may have edited the settings meanwhile.
void MenuSimulator::lookAgain() {
    reloadSettings();
    standIn.follow();
    readSettings();
    unwritable = {};
    places.lookAgain();
    wasSearching = true;
    showPlaces();
    showChecks();
}

void MenuSimulator::switchTextLogOn() {
    if (!places.getPlaces().empty())
        places.choose(places.getChosen()); // a better find would take the first row
    const zel::String folder = places.chosenFolder();
    const TextLogSwitch result = ::switchTextLogOn(folder);
    const bool mustWrite =
        result.outcome == SwitchOutcome::NotWritten || result.outcome == SwitchOutcome::NotText;
    unwritable = mustWrite ? folder : zel::String();
    message = result.text();
    showChecks();
    if (isReady())
        playScreenSound("stamp");
    if (const zel::Widget* plate = getWidget("switchOn"); plate != nullptr && !plate->isVisible())
        setFocus(isReady() ? zel::String("menuButton1") : rows.name("row", places.getChosen()));
}

void MenuSimulator::useStandIn() {
    tools::Finding finding;
    if (OwnStandIn::make(finding)) {
        keepFolder(OwnStandIn::folder());
        return;
    }
    message = textOf(wording::StandInUnmade, {shortPath(OwnStandIn::folder(), FileLetters)});
    showWords();
}

void MenuSimulator::useChosen() {
    showChecks();
    if (isReady())
        keepFolder(places.chosenFolder());
}

void MenuSimulator::keepFolder(const zel::String& folder) {
    const SettingWritten written = writeSimulatorFolder(folder);
    if (written.fault != zel::FileFault::None) {
        message = textOf(wording::ChoiceUnkept,
                         {shortPath(written.file, FileLetters), faultSentence(written.fault)});
        showWords();
        return;
    }
    standIn.follow();
    setTransition("MenuMain");
}

void MenuSimulator::leave() {
    if (!endsProgram)
        setTransition("MenuMain");
    else if (!secondPress.isDue())
        setTransition("quitApp");
}
