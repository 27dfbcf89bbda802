#include "app/screens/MenuCareerPages.h"

#include "app/screens/BookTexts.h"
#include "app/screens/CareerDrawer.h"
#include "app/screens/ScreenWording.h"
#include "engine/menu/Menu.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr size_t AllPagesKept = 11; // the present save and ten before it

const char* slipKind(bool isWhole, bool isChosen) {
    if (isWhole)
        return isChosen ? "slipOn" : "slipOff";
    return isChosen ? "slipLostOn" : "slipLostOff";
}

} // namespace

void MenuCareerPages::onEnter() {
    const LogBookOfCareer* book = drawer.chosenBook();
    pages = book != nullptr ? Shelf::pages(*book) : std::vector<SavePage>();
    chosen = 0;
    rows.resize(*menu, pages.size());
    for (size_t i = 0; i < pages.size(); ++i)
        setText(rows.name("row", i), pageText(pages[i]));
    setVisible("kept", pages.size() > AllPagesKept);
    showPages();
    showCard();
    setFocus(rows.name("row", chosen));
}

void MenuCareerPages::update() {
    const auto [first, last] = rows.seen(*menu);
    setText("more",
            last == 0 ? "" : textOf(wording::PagesSeen, {first, last, int32_t(pages.size())}));
}

void MenuCareerPages::showPages() {
    for (size_t i = 0; i < pages.size(); ++i)
        setWidgetKind(rows.name("row", i), slipKind(pages[i].isWhole, i == chosen));
}

void MenuCareerPages::showCard() {
    const SavePage* page = chosen < pages.size() ? &pages[chosen] : nullptr;
    const bool isWhole = page != nullptr && page->isWhole;
    if (const LogBookOfCareer* book = drawer.chosenBook(); book != nullptr && isWhole)
        setText("name", pageTitle(*book, page->summary));
    else
        setText("name", book != nullptr ? bookTitle(*book) : "");
    setActive("menuButton1", isWhole && page->kind != SavePage::Present);
    if (!drawer.trouble().empty())
        setText("facts", textOf(wording::NotPossible, {drawer.trouble()}));
    else if (isWhole)
        setText("facts", pageLines(page->summary));
    else
        setText("facts", page != nullptr ? textOf(wording::PageIsDamaged) : "");
}

void MenuCareerPages::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    const int32_t row = rows.indexOf(*widget);
    if (row >= 0) {
        widget->reset();
        chosen = size_t(row);
        showPages();
        showCard();
    } else if (widget->getName() == "menuButton1") {
        widget->reset();
        turnBack();
    }
}

void MenuCareerPages::turnBack() {
    if (chosen >= pages.size() || menu->isTransitionRequested())
        return; // the second of two quick presses
    if (drawer.turnBack(pages[chosen]))
        setTransition("MenuCareers");
    else
        showCard();
}
