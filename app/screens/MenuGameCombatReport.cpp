#include "app/screens/MenuGameCombatReport.h"

#include <algorithm>
#include <utility>

#include "app/book/ServiceWording.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/screens/ReportPages.h"
#include "app/screens/ScreenWording.h"
#include "engine/core/Log.h"
#include "engine/menu/Menu.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"

namespace {

constexpr int32_t EntryCount = 21; // of a column
constexpr int32_t LinesPerEntry = 3;
constexpr int32_t EntriesPerSheet = 5;

void logReport(const zel::String& message) {
    zel::log(message, "MenuGameCombatReport", zel::LogInfo);
}

int32_t sheetsFor(const ReportColumns& columns) {
    const auto entries = int32_t(std::max(columns.left.size(), columns.right.size()));
    return std::max(1, (std::min(entries, EntryCount) + EntriesPerSheet - 1) / EntriesPerSheet);
}

/// place: the entry's position on its sheet, from 0; line: 1 to 3.
zel::String lineName(const char* column, int32_t place, int32_t line) {
    return zel::String(column) + (place * LinesPerEntry + line);
}

zel::String reasonName(const char* column, int32_t place) {
    return zel::String(column) + "Why" + (place + 1);
}

} // namespace

void MenuGameCombatReport::onEnter() {
    pages.enterReport();
    endsDay = !pages.isFromBook();
    pilotFont = fontOf("left1");
    causeFont = fontOf("left3");
    const zel::TextArea* reason = menu->getTextArea("leftWhy1");
    reasonFont = reason != nullptr ? reason->getFont() : nullptr;
    columns = {};
    sheetCount = 1;
    const std::optional<RecordedFlight> flown = pages.shown();
    if (const Database* career = runningCareer()) {
        const Calendar day = flown ? Calendar::ofNumber(flown->date) : career->calendar();
        setText("date", dateInLanguage(day));
        logReport("Combat Report: " + day.displayText());
    }
    if (flown) {
        const std::vector<PilotReport>& records = flown->mission.reports;
        logReport(zel::String("Number of Pilots: ") + int32_t(records.size()));
        columns = combatReportColumns(records, flown->mission.events);
        if (columns.right.empty())
            columns.right.emplace_back().reason = textOf(wording::NobodyOpposite);
        sheetCount = sheetsFor(columns);
    }
    // A flight of the book that isn't found can't be read.
    if (columns.left.empty() && pages.isFromBook())
        columns.left.emplace_back().reason = textOf(wording::RecordUnreadable);
    else if (columns.left.empty())
        columns.left.emplace_back().pilot = textOf(wording::NoMission);
    setVisible("where", flown.has_value());
    setText("menuButton1", textOf(pages.isFromBook() ? wording::ToTheLogBook : wording::GoOn));
    if (zel::Widget* onward = getWidget("menuButton1"))
        onward->setTransition(pages.next());
    showSheet(1);
}

/// Null if there is no such widget.
const zel::Font* MenuGameCombatReport::fontOf(const zel::String& element) const {
    const zel::Widget* widget = getWidget(element);
    return widget != nullptr ? widget->getFont() : nullptr;
}

/// Sets a line's text, in the font of the element if its own makes the text wider than the line.
void MenuGameCombatReport::setLine(const zel::String& line, const zel::String& text,
                                   const zel::Font* font, const char* narrowElement) {
    zel::Widget* widget = getWidget(line);
    if (widget == nullptr)
        return;
    const zel::Font* narrow = fontOf(narrowElement);
    const bool isWide = zel::Text::widthOf(font, text) > widget->getBounds().rect.width;
    widget->setFont(isWide && narrow != nullptr ? narrow : font);
    setText(line, text);
}

/// Below the cause, or in its place. In the narrow type if it doesn't fit.
void MenuGameCombatReport::setReason(const char* column, int32_t place, const ReportEntry& entry) {
    zel::TextArea* area = menu->getTextArea(reasonName(column, place));
    if (area == nullptr)
        return;
    if (const zel::Widget* cause = getWidget(lineName(column, place, LinesPerEntry))) {
        const zel::PixelRect& above = cause->getBounds().rect;
        zel::PixelRect rect = area->getBounds().rect;
        const int32_t bottom = rect.y + rect.height;
        rect.y = above.y + (entry.cause.empty() ? 0 : above.height);
        rect.height = bottom - rect.y;
        area->setRect(rect);
    }
    area->setFont(reasonFont);
    area->setText(entry.reason);
    const zel::Font* narrow = fontOf("narrowWhy");
    if (narrow != nullptr && area->getLabel().isCut())
        area->setFont(narrow);
}

void MenuGameCombatReport::setEntry(const char* column, int32_t place, const ReportEntry& entry) {
    const bool isOwn = entry.isPlayer && fontOf("ownLine") != nullptr;
    setLine(lineName(column, place, 1), entry.pilot, isOwn ? fontOf("ownLine") : pilotFont,
            entry.isPlayer ? "narrowOwn" : "narrowLine");
    setText(lineName(column, place, 2), entry.fate);
    setLine(lineName(column, place, 3), entry.cause, causeFont, "narrowCause");
    setReason(column, place, entry);
}

void MenuGameCombatReport::showSheet(int32_t sheet) {
    shownSheet = sheet;
    const ReportEntry none;
    for (const auto& [column, entries] :
         {std::pair{"left", &columns.left}, std::pair{"right", &columns.right}})
        for (int32_t place = 0; place < EntriesPerSheet; ++place) {
            const int32_t number = (sheet - 1) * EntriesPerSheet + place;
            const bool isThere = number < std::min(int32_t(entries->size()), EntryCount);
            setEntry(column, place, isThere ? (*entries)[number] : none);
        }
    setVisible("nextSheet", sheetCount > 1);
    setVisible("sheetNumber", sheetCount > 1);
    setText("sheetNumber", textOf(wording::SheetOf, {sheet, sheetCount}));
}

void MenuGameCombatReport::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    if (widget->getName() == "nextSheet") {
        widget->reset();
        showSheet(shownSheet % sheetCount + 1);
    } else if (widget->getName() == "where") {
        endsDay = false;
    }
}

void MenuGameCombatReport::onKey(const zel::KeyPress& key) {
    if (key.symbol == zel::KeyPageDown && shownSheet < sheetCount)
        showSheet(shownSheet + 1);
    else if (key.symbol == zel::KeyPageUp && shownSheet > 1)
        showSheet(shownSheet - 1);
}

void MenuGameCombatReport::onLeave() {
    if (endsDay)
        pages.endDay();
}
