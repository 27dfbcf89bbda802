#include "app/screens/MenuCareers.h"

#include "app/career/Nation.h"
#include "app/screens/BookTexts.h"
#include "app/screens/CareerDrawer.h"
#include "app/screens/ScreenWording.h"
#include "engine/menu/Menu.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"

namespace {

const char* spineKind(const SaveSummary& summary) {
    if (!summary.isReadable)
        return "spineunread";
    switch (summary.nation) {
    case France:
        return "spinefrench";
    case Germany:
        return "spinegerman";
    case Usa:
        return "spineamerican";
    default:
        return "spineenglish";
    }
}

} // namespace

void MenuCareers::onEnter() {
    isAsking = false;
    drawer.read();
    showBooks();
    showCard();
    setFocus(drawer.getBooks().empty() ? zel::String("another")
                                       : rows.name("row", drawer.getChosen()));
}

void MenuCareers::update() {
    if (drawer.getBooks().empty()) {
        setText("count", "");
        return;
    }
    const auto [first, last] = rows.seen(*menu);
    const auto count = int32_t(drawer.getBooks().size());
    setText("count", textOf(wording::BooksSeen, {first, last, count}));
}

void MenuCareers::onKey(const zel::KeyPress& key) {
    if (key.symbol == zel::KeyDelete && !menu->isTransitionRequested())
        ask(true);
}

void MenuCareers::showBooks() {
    const std::vector<LogBookOfCareer>& books = drawer.getBooks();
    rows.resize(*menu, books.size());
    for (size_t i = 0; i < books.size(); ++i) {
        const zel::String row = rows.name("row", i);
        setWidgetKind(row, spineKind(books[i].summary));
        setText(row, spineText(books[i]));
        setActive(rows.name("ribbon", i), false); // not a button
    }
    showChosen();
}

void MenuCareers::showChosen() {
    for (size_t i = 0; i < drawer.getBooks().size(); ++i)
        setVisible(rows.name("ribbon", i), i == drawer.getChosen());
    rows.show(*menu, drawer.getChosen());
}

void MenuCareers::showCard() {
    const LogBookOfCareer* book = drawer.chosenBook();
    showParticulars(book != nullptr ? book->summary : SaveSummary());
    setText("name", book != nullptr ? bookTitle(*book) : textOf(wording::DrawerIsEmpty));
    if (!drawer.trouble().empty())
        showNote(textOf(wording::NotPossible, {drawer.trouble()}));
    else if (isAsking)
        showNote(textOf(wording::PutThisAway));
    else if (book == nullptr)
        showNote(textOf(wording::NoBookHere));
    else if (!book->summary.isReadable)
        showNote(unreadableText(*book));
    else
        showNote("");
    showPlates();
}

void MenuCareers::showParticulars(const SaveSummary& summary) {
    setText("facts", summary.isReadable ? serviceLines(summary) : "");
    setText("war", summary.isReadable ? warLines(summary) : "");
    setText("last", summary.isReadable ? lastFlownText(summary.written) : "");
    setVisible("serving", summary.isReadable && summary.state == CareerState::Serving);
    setVisible("fallen", summary.isReadable && summary.state == CareerState::Fallen);
}

// It takes the place of the particulars.
void MenuCareers::showNote(const zel::String& text) {
    setText("note", text);
    setVisible("note", !text.empty());
    for (const char* particular : {"facts", "war", "last"})
        setVisible(particular, text.empty());
    if (!text.empty())
        for (const char* stamp : {"serving", "fallen"})
            setVisible(stamp, false);
}

void MenuCareers::showPlates() {
    const LogBookOfCareer* book = drawer.chosenBook();
    setText("another", textOf(book != nullptr ? wording::BeginAnother : wording::BeginABook));
    setText("pages", textOf(isAsking ? wording::YesPutAway : wording::EarlierPages));
    setText("away", textOf(isAsking ? wording::KeepIt : wording::PutAway));
    setActive("pages", book != nullptr);
    setActive("away", book != nullptr);
    setActive("menuButton1", book != nullptr && book->summary.isReadable);
}

void MenuCareers::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    const zel::String name = widget->getName();
    const int32_t book = rows.indexOf(*widget);
    const bool wasAsking = isAsking;
    if (name != "menuBack" && name != "another")
        widget->reset(); // the screen may stay
    if (book >= 0)
        pressBook(size_t(book), widget->isFocused());
    else if (name == "away")
        ask(!wasAsking);
    else if (name == "pages" && wasAsking)
        putAway();
    else if (name == "pages")
        setTransition("MenuCareerPages");
    else if (name == "menuButton1" && drawer.chosenBook() != nullptr)
        pressBook(drawer.getChosen(), true);
}

// A key presses the chosen book to take it up; the pointer only chooses.
void MenuCareers::pressBook(size_t book, bool byKey) {
    const ShelvedCareer* chosen = drawer.chosenBook();
    const bool opens = byKey && !isAsking && book == drawer.getChosen() &&
                       chosen->summary.isReadable && !menu->isTransitionRequested();
    if (!opens) {
        drawer.choose(book);
        ask(false);
        showChosen();
        return;
    }
    const zel::String next = drawer.open();
    if (drawer.trouble().empty())
        setTransition(next);
    else
        showCard();
}

void MenuCareers::ask(bool whether) {
    drawer.choose(drawer.getChosen()); // nothing is wrong any more
    isAsking = whether && drawer.chosenBook() != nullptr;
    showCard();
}

void MenuCareers::putAway() {
    isAsking = false;
    if (drawer.putAway())
        showBooks();
    showCard();
}
