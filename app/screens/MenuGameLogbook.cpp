#include "app/screens/MenuGameLogbook.h"

#include <algorithm>

#include "app/book/BookTables.h"
#include "app/book/LogBookText.h"
#include "app/book/LogBookWording.h"
#include "app/book/PilotRecord.h"
#include "app/book/Standing.h"
#include "app/career/Database.h"
#include "app/record/CareerRecord.h"
#include "app/screens/BookPage.h"
#include "app/screens/ReportPages.h"
#include "app/screens/ScreenWording.h"
#include "engine/core/Log.h"
#include "engine/menu/Menu.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"

namespace {

constexpr int32_t RowsPerPage = 14;
constexpr size_t TotalLetters = 44;
constexpr uint32_t Ink = 0xFF2A1E12;
constexpr uint32_t VictoryInk = 0xFF23406B;
constexpr uint32_t FallInk = 0xFF8E1F17;

// Columns of the typewriter face, as wide as on the ruled pages.
zel::String leftHalf(const LogBookRow& row) {
    return column(row.number, NumberLetters + 1) + column(row.date, DateLetters + 1) +
           column(row.machine, MachineLetters + 1) + row.with;
}

zel::String rightHalf(const LogBookRow& row) {
    return column(row.against, AgainstLetters + 1) + column(row.result, ResultLetters + 1) +
           row.total;
}

zel::String rowName(const char* half, int32_t row) { return zel::String(half) + row; }

} // namespace

void MenuGameLogbook::onEnter() {
    pages.choose(0);
    readBook();
    const bool isBack = isComingBack || isReopened();
    showPage(isBack ? shownPage : pageCount());
    const char* const opened = pages.takeBookOrigin();
    if (!isBack)
        origin = opened;
    if (zel::Widget* back = getWidget("menuBack"))
        back->setTransition(origin);
    isComingBack = false;
}

void MenuGameLogbook::readBook() {
    book = {};
    lines.clear();
    const Database* career = runningCareer();
    if (career == nullptr)
        return;
    SqliteFile& tables = record.read(*career);
    book = readLogBook(tables, *career, BookTables::instance());
    if (tables.failed())
        zel::log("The log book can't be read: " + tables.problem(), "MenuGameLogbook",
                 zel::LogWarning);
    for (size_t i = 0; i < book.flights.size(); ++i) {
        lines.push_back({i});
        if (book.endsPilot(i))
            lines.push_back({i, true});
    }
    showName(readPilot(tables, *career, BookTables::instance(), career->playerPilot));
    setText("totalLeft", book.isUnreadable ? zel::String() : flightsText(book));
    setText("totalRight", book.isUnreadable ? zel::String() : victoriesText(book, TotalLetters));
}

/// Shows the name with the short rank if it doesn't fit, and then in the narrow type.
void MenuGameLogbook::showName(const PilotRecord& pilot) {
    zel::TextArea* name = menu->getTextArea("name");
    const zel::Widget* wide = getWidget("wideRow");
    const zel::Widget* narrow = getWidget("narrowRow");
    if (name == nullptr || wide == nullptr || narrow == nullptr)
        return;
    name->setFont(wide->getFont());
    name->setText(titleOf(pilot.honours, pilot.name));
    if (name->getLabel().isCut())
        name->setText(shortTitleOf(pilot.honours, pilot.name));
    if (name->getLabel().isCut())
        name->setFont(narrow->getFont());
}

int32_t MenuGameLogbook::pageCount() const {
    return std::max(1, (int32_t(lines.size()) + RowsPerPage - 1) / RowsPerPage);
}

void MenuGameLogbook::showPage(int32_t page) {
    shownPage = std::clamp(page, 1, pageCount());
    const size_t first = size_t(shownPage - 1) * RowsPerPage;
    for (int32_t row = 1; row <= RowsPerPage; ++row) {
        const size_t line = first + size_t(row) - 1;
        showRow(row, line < lines.size() ? &lines[line] : nullptr);
    }
    if (lines.empty())
        setText(rowName("left", 1), emptyBookText(book));
    setText("pageNumber", textOf(wording::PageOf, {shownPage, pageCount()}));
    setActive("webPage", !lines.empty());
    setActive("earlier", shownPage > 1);
    setActive("later", shownPage < pageCount());
}

void MenuGameLogbook::showRow(int32_t row, const BookLine* line) {
    zel::String left;
    zel::String right;
    if (line != nullptr && line->isFall) {
        // The bare name where the title has no room, and the first name as an initial if need be.
        BookFlight& fall = book.flights[line->flight];
        for (const zel::String& name : {fall.pilotName, shortName(fall.pilotName)})
            if (!fits(rowName("left", row), fallText(fall)))
                fall.pilotTitle = name;
        left = fallText(fall);
        if (!fits(rowName("right", row), successionText(book, line->flight)))
            fall.successorTitle = fall.successor;
        right = successionText(book, line->flight);
    } else if (line != nullptr) {
        const LogBookRow columns = logBookRow(book.flights[line->flight]);
        left = leftHalf(columns);
        right = rightHalf(columns);
    }
    showHalf(rowName("left", row), left, line);
    showHalf(rowName("right", row), right, line);
}

/// Whether a text that isn't set in columns is no wider than that row.
bool MenuGameLogbook::fits(const zel::String& row, const zel::String& text) const {
    const zel::Widget* half = getWidget(row);
    const zel::Widget* font = getWidget("narrowRow");
    return half == nullptr || font == nullptr ||
           zel::Text::widthOf(font->getFont(), text) <= half->getBounds().rect.width;
}

/// Shows a fall in red ink, a flight with a victory in blue. A fall isn't set in columns.
void MenuGameLogbook::showHalf(const zel::String& name, const zel::String& text,
                               const BookLine* line) {
    zel::Widget* half = getWidget(name);
    if (half == nullptr)
        return;
    const bool isFall = line != nullptr && line->isFall;
    const bool isVictory = line != nullptr && book.flights[line->flight].victories > 0;
    for (int32_t look = 0; look < zel::LookCount; ++look)
        half->setTextColor(static_cast<zel::WidgetLook>(look), isFall      ? FallInk
                                                               : isVictory ? VictoryInk
                                                                           : Ink);
    if (const zel::Widget* font = getWidget(isFall ? "narrowRow" : "wideRow"))
        half->setFont(font->getFont());
    half->setText(text);
    half->setActive(line != nullptr && !isFall);
}

// Both halves of a row light up together.
void MenuGameLogbook::update() {
    const auto isLit = [](const zel::Widget& half) {
        return half.isActive() && (half.isFocused() || half.isOver());
    };
    for (int32_t row = 1; row <= RowsPerPage; ++row) {
        zel::Widget* left = getWidget(rowName("left", row));
        zel::Widget* right = getWidget(rowName("right", row));
        if (left == nullptr || right == nullptr)
            continue;
        const zel::WidgetLook look =
            isLit(*left) || isLit(*right) ? zel::LookOver : zel::LookInactive;
        for (zel::Widget* half : {left, right})
            half->setImage(zel::LookActive, half->getImage(look));
    }
}

void MenuGameLogbook::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    const zel::String name = widget->getName();
    if (name == "webPage") {
        widget->reset();
        if (const Database* career = runningCareer())
            setText("note", writeBookPage(record, *career));
        return;
    }
    if (name == "earlier" || name == "later") {
        widget->reset();
        showPage(shownPage + (name == "later" ? 1 : -1));
        return;
    }
    for (int32_t row = 1; row <= RowsPerPage; ++row) {
        const size_t line = size_t(shownPage - 1) * RowsPerPage + size_t(row) - 1;
        if (line >= lines.size() || lines[line].isFall ||
            (name != rowName("left", row) && name != rowName("right", row)))
            continue;
        pages.choose(book.flights[lines[line].flight].number);
        isComingBack = true;
        setTransition("MenuGameCombatReport");
    }
}

void MenuGameLogbook::onKey(const zel::KeyPress& key) {
    if (menu->isTransitionRequested())
        return;
    if (key.symbol == zel::KeyPageDown)
        showPage(shownPage + 1);
    else if (key.symbol == zel::KeyPageUp)
        showPage(shownPage - 1);
    else if (key.symbol == zel::KeyHome)
        showPage(1);
    else if (key.symbol == zel::KeyEnd)
        showPage(pageCount());
}
