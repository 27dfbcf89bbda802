#include "app/screens/MenuGameWarOver.h"

#include <algorithm>

#include "app/book/BookTables.h"
#include "app/book/LogBookText.h"
#include "app/book/WarEndWording.h"
#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/record/CareerRecord.h"
#include "app/screens/BookPage.h"
#include "app/screens/ReportPages.h"
#include "engine/core/Log.h"
#include "engine/graphics/Text.h"
#include "engine/menu/Menu.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr size_t SheetRibbons = 5;
constexpr int32_t GapHeight = 8; // pixels between the tenth row and one that isn't the next place
constexpr int32_t RuleAbove = 6; // of the gold rules above the row between them
constexpr int32_t LongPlace = 1000; // places from here up start at the board's frame
constexpr int32_t LongPlaceStep = 14;
constexpr uint32_t Gold = 0xFFEFD58F;
constexpr uint32_t BrightGold = 0xFFFFF6DC; // of the player's row
constexpr const char* Columns[] = {"place", "pilot", "count", "real"};

} // namespace

void MenuGameWarOver::onEnter() {
    const Database* career = runningCareer();
    if (career == nullptr)
        return;
    SqliteFile& tables = record.read(*career);
    const WarEnd end = readWarEnd(tables, *career, BookTables::instance());
    if (tables.failed())
        zel::log("The end of the war lacks what the record of the war has: " + tables.problem(),
                 "Book", zel::LogWarning);
    setText("date", bookDate(Calendar::ofNumber(FirstDayOfPeace)));
    showSheet(end);
    showBoard(end);
    const bool hasFlown = !end.pilot.flights.empty() || !end.fallen.empty();
    setActive("webPage", hasFlown);
    setFocus(hasFlown ? "webPage" : "menuBack");
}

void MenuGameWarOver::showSheet(const WarEnd& end) {
    std::vector<zel::String> texts = {textOf(wording::Hostilities), comradesText(end),
                                      realFirstText(end)};
    std::stable_partition(texts.begin(), texts.end(),
                          [](const zel::String& one) { return !one.empty(); });
    showLines("text", texts);
    setVisible("note", false);
    setText("name", titleOf(end.pilot.honours, end.pilot.name));
    showFigures(end);
    showRibbons(end.pilot.honours);
}

/// Leaves his predecessors out if a long name takes their line: the log book has them.
void MenuGameWarOver::showFigures(const WarEnd& end) {
    setText("figures", careerLines(end));
    zel::TextArea* area = menu != nullptr ? menu->getTextArea("figures") : nullptr;
    if (area == nullptr)
        return;
    const zel::PixelRect rect = area->getBounds().rect;
    area->setRect({rect.x, rect.y, rect.width, 2 * rect.height}); // to see how much it needs
    for (const NamedFallen named : {NamedFallen::Brief, NamedFallen::None})
        if (area->getLabel().height() > rect.height)
            setText("figures", careerLines(end, named));
    area->setRect(rect);
}

/// The highest.
void MenuGameWarOver::showRibbons(const Honours& honours) {
    std::vector<zel::String> images;
    for (const AwardGiven& one : honours.ribbons())
        if (one.award->key != "iron1") // which has none
            images.push_back("ribbon_" + zel::String(one.award->key));
    images.resize(SheetRibbons);
    for (size_t i = 0; i < SheetRibbons; ++i)
        showImage(zel::String("ribbon") + int32_t(i + 1), images[i]);
}

void MenuGameWarOver::showBoard(const WarEnd& end) {
    setVisible("ownRow", false);
    setActive("ownRow", false); // not a button
    for (int32_t number = 1; number <= int32_t(BoardRows); ++number) {
        const bool isShown = number <= int32_t(end.board.size());
        for (const char* part : Columns)
            setVisible(zel::String(part) + number, isShown);
        const bool isLast = number == int32_t(end.board.size());
        if (isShown)
            showRow(number, end.board[number - 1], end.hasGap && isLast ? GapHeight : 0);
    }
}

void MenuGameWarOver::showRow(int32_t number, const StandingRow& row, int32_t lower) {
    makeRoom(number, row);
    const zel::String texts[] = {placeNumber(row), fitting(zel::String("pilot") + number, row),
                                 zel::String(row.victories), realTotalText(row)};
    for (size_t i = 0; i < std::size(Columns); ++i) {
        zel::Widget* widget = getWidget(zel::String(Columns[i]) + number);
        if (widget == nullptr)
            continue;
        widget->setActive(false); // not a button
        widget->setText(texts[i]);
        for (int32_t look = 0; look < zel::LookCount; ++look)
            widget->setTextColor(static_cast<zel::WidgetLook>(look), row.isOwn ? BrightGold : Gold);
        widget->getBounds().rect.y += lower;
    }
    zel::Widget* rules = getWidget("ownRow");
    const zel::Widget* place = getWidget(zel::String("place") + number);
    if (!row.isOwn || rules == nullptr || place == nullptr)
        return;
    rules->getBounds().rect.y = place->getBounds().rect.y - RuleAbove;
    rules->setVisible(true);
}

/// A long place extends into the column of names, so the name starts further right.
void MenuGameWarOver::makeRoom(int32_t number, const StandingRow& row) const {
    zel::Widget* place = getWidget(zel::String("place") + number);
    zel::Widget* pilot = getWidget(zel::String("pilot") + number);
    if (row.place < LongPlace || place == nullptr || pilot == nullptr)
        return;
    place->getBounds().rect.x += LongPlaceStep;
    pilot->getBounds().rect.x += LongPlaceStep;
    pilot->getBounds().rect.width -= LongPlaceStep;
}

zel::String MenuGameWarOver::fitting(const zel::String& element, const StandingRow& row) const {
    const zel::Widget* widget = getWidget(element);
    zel::String whole = markedName(row);
    const bool fits = widget == nullptr || zel::Text::widthOf(widget->getFont(), whole) <=
                                               widget->getBounds().rect.width;
    return fits ? whole : shortMarkedName(row);
}

void MenuGameWarOver::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    const Database* career = runningCareer();
    if (widget->getName() == "logbook")
        pages.openBook("MenuGameWarOver");
    if (widget->getName() != "webPage" || career == nullptr)
        return;
    widget->reset();
    setText("note", writeBookPage(record, *career));
    setVisible("note", true);
    setVisible("text3", false);
}
