#include "app/screens/MenuSimulatorFolder.h"

#include <algorithm>

#include "app/screens/PathText.h"
#include "app/screens/ScreenWording.h"
#include "app/screens/SimulatorPlaces.h"
#include "engine/core/System.h"
#include "engine/menu/Menu.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"

namespace {

// Letters of the typewriter faces.
constexpr size_t PathLetters = 48;
constexpr size_t PathLines = 2;
constexpr int32_t FolderLetters = 43;

zel::String rowText(const zel::String& name) {
    const zel::String shown = zel::system::shownText(name);
    return shown.length() <= FolderLetters ? shown : shown.left(FolderLetters - 3) + "...";
}

} // namespace

void MenuSimulatorFolder::onEnter() {
    places.keep();
    if (walk.isAtDrives())
        walk.goHome();
    else
        walk.open(walk.getFolder()); // it may have changed
    showFolder();
    focusRow(0);
}

void MenuSimulatorFolder::update() {
    const auto count = int32_t(walk.getNames().size());
    if (!walk.isReadable()) {
        setText("more", textOf(wording::FolderUnreadable));
    } else if (count == 0) {
        setText("more", textOf(wording::NoFolders));
    } else {
        const auto [first, last] = rows.seen(*menu);
        setText("more", textOf(wording::FoldersSeen, {first, last, count}));
    }
}

void MenuSimulatorFolder::showFolder() {
    const std::vector<zel::String>& names = walk.getNames();
    rows.resize(*menu, names.size());
    for (size_t i = 0; i < names.size(); ++i)
        setText(rows.name("row", i), rowText(names[i]));
    rows.show(*menu, 0);
    setText("path", walk.isAtDrives() ? textOf(wording::Drives)
                                      : pathInLines(walk.getFolder(), PathLetters, PathLines));
    showCard();
}

void MenuSimulatorFolder::showCard() {
    const bool isRight = !walk.simulatorHere().empty();
    setVisible("hintHead", !isRight);
    setVisible("rightHead", isRight);
    setVisible("hintMark", isRight);
    setText("hint", textOf(!isRight          ? wording::WhichFolder
                           : walk.isInData() ? wording::InsideData
                                             : wording::RightFolder));
    setActive("up", walk.canGoUp());
    setActive("menuButton1", isRight);
}

void MenuSimulatorFolder::focusRow(int32_t row) {
    if (row >= 0 && row < int32_t(walk.getNames().size()))
        setFocus(rows.name("row", size_t(row)));
    else
        setFocus(walk.simulatorHere().empty() ? "up" : "menuButton1");
}

void MenuSimulatorFolder::onKey(const zel::KeyPress& key) {
    if (menu->isTransitionRequested())
        return;
    if (key.symbol == zel::KeyBackspace) {
        goUp();
    } else if (key.printable && key.symbol != zel::KeySpace) {
        int32_t focused = -1;
        for (size_t i = 0; i < walk.getNames().size() && focused < 0; ++i)
            if (const zel::Widget* row = rows.find(*menu, "row", i); row && row->isFocused())
                focused = int32_t(i);
        if (const int32_t found = walk.find(key.character, focused); found >= 0)
            focusRow(found);
    }
}

// The focus goes to the folder that it has come from.
void MenuSimulatorFolder::goUp() {
    if (!walk.canGoUp())
        return;
    const int32_t row = walk.goUp();
    showFolder();
    focusRow(std::max(row, 0));
}

void MenuSimulatorFolder::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    const zel::String name = widget->getName();
    const int32_t row = rows.indexOf(*widget);
    const bool byKey = widget->isFocused();
    if (menu->isTransitionRequested())
        return;
    if (name == "menuButton1") {
        places.pick(walk.simulatorHere());
        setTransition("MenuSimulator");
        return;
    }
    if (name == "menuBack")
        return;      // the script leads back
    widget->reset(); // the screen stays
    if (row >= 0 && !byKey && opened.isDue())
        return; // or a double click would go two folders down
    if (row >= 0 && !byKey)
        opened.begin();
    if (row >= 0)
        walk.enter(size_t(row));
    else if (name == "home")
        walk.goHome();
    else if (name == "drives")
        walk.openDrives();
    if (name == "up") {
        goUp();
        return;
    }
    showFolder();
    if (byKey)
        focusRow(0);
}
