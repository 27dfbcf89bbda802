#include "app/screens/MenuGameCombatReport.h"

#include <algorithm>

#include "app/career/Database.h"
#include "app/career/Wording.h"
#include "app/report/Flight.h"
#include "app/report/ReportText.h"
#include "app/screens/WarProgress.h"
#include "app/war/WarAdvance.h"
#include "engine/core/Log.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr int32_t LineCount = 63; // of a column
constexpr int32_t LinesPerEntry = 3;
constexpr int32_t EntriesPerSheet = 7;
constexpr int32_t LinesPerSheet = LinesPerEntry * EntriesPerSheet;
constexpr int32_t MostReportSheets = LineCount / LinesPerSheet;

void logReport(const zel::String& message) {
    zel::log(message, "MenuGameCombatReport", zel::LogInfo);
}

int32_t sheetsFor(const ReportColumns& columns) {
    const auto entries = int32_t(std::max(columns.left.size(), columns.right.size()));
    return std::clamp((entries + EntriesPerSheet - 1) / EntriesPerSheet, 1, MostReportSheets);
}

zel::String lineName(const char* column, int32_t line) { return zel::String(column) + line; }

} // namespace

void MenuGameCombatReport::onEnter() {
    clearColumns();
    sheetCount = 1;
    if (const Database* career = runningCareer()) {
        showDate();
        logReport("Combat Report: " + career->calendar().displayText());
    }
    CombatReport& report = flight.report();
    if (!report.pilots.empty()) {
        logReport(zel::String("Number of Pilots: ") + int32_t(report.pilots.size()));
        const ReportColumns columns = combatReportColumns(report.pilots, flight.flown().events);
        fillColumn("left", columns.left);
        fillColumn("right", columns.right);
        sheetCount = sheetsFor(columns);
        showNote(columns.note);
        report.clear();
    }
    showSheet(1);
}

void MenuGameCombatReport::clearColumns() {
    for (int32_t line = 1; line <= LineCount; ++line) {
        setText(lineName("left", line), line == 1 ? textOf(wording::NoMission) : "");
        setText(lineName("right", line), "");
    }
    showNote({});
}

/// Shown on its own slip, which has no other use.
void MenuGameCombatReport::showNote(const zel::String& note) {
    setVisible("slip", !note.empty());
    setText("note", note);
}

void MenuGameCombatReport::fillColumn(const char* column, const std::vector<ReportEntry>& entries) {
    int32_t line = 1;
    for (const ReportEntry& entry : entries) {
        if (entry.isPlayer)
            takeFont(lineName(column, line), "ownLine");
        setLine(lineName(column, line++), entry.pilot, entry.isPlayer ? "narrowOwn" : "narrowLine");
        setText(lineName(column, line++), entry.fate);
        setLine(lineName(column, line++), entry.cause, "narrowCause");
    }
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
    for (int32_t line = 1; line <= LineCount; ++line)
        for (const char* column : {"left", "right"})
            setVisible(lineName(column, line), (line - 1) / LinesPerSheet + 1 == sheet);
    for (int32_t other = 1; other <= MostReportSheets; ++other) {
        const bool exists = sheetCount > 1 && other <= sheetCount;
        setVisible(zel::String("sheet") + other, exists && other != sheet);
        setVisible(zel::String("sheetlit") + other, exists && other == sheet);
    }
}

void MenuGameCombatReport::onEvent(zel::Widget* widget, int32_t /*eventType*/) {
    for (int32_t sheet = 1; sheet <= sheetCount; ++sheet)
        if (widget->getName() == zel::String("sheet") + sheet) {
            widget->reset();
            showSheet(sheet);
        }
}

void MenuGameCombatReport::onLeave() {
    Database* career = runningCareer();
    if (career == nullptr)
        return;
    const WarProgress progress;
    advanceWar(*career, &flight.generator());
}
