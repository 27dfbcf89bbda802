#include "app/screens/MenuGameCombatReport.h"

#include <algorithm>

#include "app/book/ServiceWording.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/report/ReportText.h"
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
constexpr int32_t CauseHeight = 22; // design pixels of an entry's third line

void logReport(const zel::String& message) {
    zel::log(message, "MenuGameCombatReport", zel::LogInfo);
}

int32_t sheetsFor(const ReportColumns& columns) {
    const auto entries = int32_t(std::max(columns.left.size(), columns.right.size()));
    return std::max(1, (std::min(entries, EntryCount) + EntriesPerSheet - 1) / EntriesPerSheet);
}

/// line: 1 to 3 of an entry, which counts from 0.
zel::String lineName(const char* column, int32_t entry, int32_t line) {
    return zel::String(column) + (entry * LinesPerEntry + line);
}

zel::String reasonName(const char* column, int32_t entry) {
    return zel::String(column) + "Why" + (entry + 1);
}

} // namespace

void MenuGameCombatReport::onEnter() {
    pages.enterReport();
    endsDay = !pages.isFromBook();
    clearColumns();
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
        const ReportColumns columns = combatReportColumns(records, flown->mission.events);
        fillColumn("left", columns.left);
        fillColumn("right", columns.right);
        if (columns.right.empty())
            setText(reasonName("right", 0), textOf(wording::NobodyOpposite));
        sheetCount = sheetsFor(columns);
    }
    setVisible("where", flown.has_value());
    setText("menuButton1", textOf(pages.isFromBook() ? wording::ToTheLogBook : wording::GoOn));
    if (zel::Widget* onward = getWidget("menuButton1"))
        onward->setTransition(pages.next());
    showSheet(1);
}

void MenuGameCombatReport::clearColumns() {
    for (const char* column : {"left", "right"})
        for (int32_t entry = 0; entry < EntryCount; ++entry) {
            for (int32_t line = 1; line <= LinesPerEntry; ++line)
                setText(lineName(column, entry, line), "");
            setText(reasonName(column, entry), "");
        }
    // A flight of the book that isn't found can't be read.
    if (pages.isFromBook())
        setText(reasonName("left", 0), textOf(wording::RecordUnreadable));
    else
        setText("left1", textOf(wording::NoMission));
}

void MenuGameCombatReport::fillColumn(const char* column, const std::vector<ReportEntry>& entries) {
    const auto count = std::min(int32_t(entries.size()), EntryCount);
    for (int32_t i = 0; i < count; ++i) {
        const ReportEntry& entry = entries[size_t(i)];
        if (entry.isPlayer)
            takeFont(lineName(column, i, 1), "ownLine");
        setLine(lineName(column, i, 1), entry.pilot, entry.isPlayer ? "narrowOwn" : "narrowLine");
        setText(lineName(column, i, 2), entry.fate);
        setLine(lineName(column, i, 3), entry.cause, "narrowCause");
        setReason(reasonName(column, i), entry);
    }
}

/// Below the cause, or in its place. In the narrow type if it doesn't fit.
void MenuGameCombatReport::setReason(const zel::String& name, const ReportEntry& entry) {
    zel::TextArea* area = menu->getTextArea(name);
    if (area == nullptr)
        return;
    if (!entry.cause.empty()) {
        zel::PixelRect rect = area->getBounds().rect;
        rect.y += CauseHeight;
        rect.height -= CauseHeight;
        area->setRect(rect);
    }
    area->setText(entry.reason);
    const zel::Widget* narrow = getWidget("narrowWhy");
    if (narrow != nullptr && area->getLabel().isCut())
        area->setFont(narrow->getFont());
}

/// Gives a line the font of another element.
void MenuGameCombatReport::takeFont(const zel::String& line, const char* element) {
    zel::Widget* widget = getWidget(line);
    const zel::Widget* other = getWidget(element);
    if (widget != nullptr && other != nullptr)
        widget->setFont(other->getFont());
}

/// Sets a line's text, in the font of the element if its own makes the text wider than the line.
void MenuGameCombatReport::setLine(const zel::String& line, const zel::String& text,
                                   const char* narrowElement) {
    const zel::Widget* widget = getWidget(line);
    if (widget != nullptr &&
        zel::Text::widthOf(widget->getFont(), text) > widget->getBounds().rect.width)
        takeFont(line, narrowElement);
    setText(line, text);
}

void MenuGameCombatReport::showSheet(int32_t sheet) {
    shownSheet = sheet;
    for (const char* column : {"left", "right"})
        for (int32_t entry = 0; entry < EntryCount; ++entry) {
            const bool isShown = entry / EntriesPerSheet + 1 == sheet;
            for (int32_t line = 1; line <= LinesPerEntry; ++line)
                setVisible(lineName(column, entry, line), isShown);
            setVisible(reasonName(column, entry), isShown);
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
