#include "tools/career/ReportLines.h"

#include <algorithm>
#include <string>

#include "app/book/RecordedFlight.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/career/Wording.h"
#include "app/mission/Configuration.h"
#include "app/report/Flight.h"
#include "app/report/ReportText.h"
#include "engine/core/Language.h"
#include "tools/career/SessionWording.h"

namespace {

constexpr size_t ColumnWidth = 54; // the longest name and its victories fit

zel::String columns(const zel::String& left, const zel::String& right) {
    std::string line;
    if (!left.empty() || !right.empty())
        line = "  " + std::string(left.view());
    if (!right.empty()) {
        line.resize(std::max<size_t>(line.size(), 2 + ColumnWidth), ' ');
        line += right.view();
    }
    return line;
}

} // namespace

std::vector<zel::String> reportLines(const std::vector<PilotReport>& pilots) {
    const ReportColumns sides = combatReportColumns(pilots, {});
    std::vector<zel::String> lines;
    if (sides.left.empty() && sides.right.empty())
        lines.push_back(columns(textOf(wording::NoMission), ""));
    for (size_t i = 0; i < std::max(sides.left.size(), sides.right.size()); ++i) {
        const ReportEntry left = i < sides.left.size() ? sides.left[i] : ReportEntry();
        const ReportEntry right = i < sides.right.size() ? sides.right[i] : ReportEntry();
        lines.push_back(columns(left.pilot, right.pilot));
        lines.push_back(columns(left.fate, right.fate));
        lines.push_back(columns(left.cause, right.cause));
    }
    if (!sides.note.empty())
        lines.push_back(sides.note);
    return lines;
}

std::vector<zel::String> whyLines(SqliteFile& record, int32_t number) {
    const std::optional<RecordedFlight> flown = readFlight(record, number);
    if (!flown)
        return {};
    std::vector<zel::String> lines{
        textOf(wording::ReportHead, {dateInLanguage(Calendar::ofNumber(flown->date))})};
    const FlownMission& mission = flown->mission;
    const ReportColumns sides = combatReportColumns(mission.reports, mission.events);
    for (const auto* side : {&sides.left, &sides.right})
        for (const ReportEntry& entry : *side) {
            lines.push_back(columns(entry.pilot, {}));
            lines.push_back(columns("  " + entry.fate, {}));
            if (!entry.cause.empty())
                lines.push_back(columns("  " + entry.cause, {}));
            lines.push_back(columns("  " + entry.reason, {}));
        }
    return lines;
}

zel::String whyNoOrders(const Flight& flight, const Database& career) {
    const Calendar today = career.calendar();
    const int32_t date = flight.voidOrders(career);
    zel::String why =
        "No orders are out for " + today.displayText() + ": mission comes before report";
    if (date > today.dateNumber())
        why += ". Those of " + Calendar::ofNumber(date).displayText() +
               " are void, as the save is older";
    else if (date != 0)
        why += ". Those of " + Calendar::ofNumber(date).displayText() +
               " are void, as the war has moved on";
    return why;
}

zel::String whyNoReport(const Flight& flight) {
    const LogNews news = flight.news();
    const zel::String why =
        news.fault != zel::FileFault::None ? zel::String(": ") + zel::faultText(news.fault) : "";
    return "No log of a finished flight has come into " + Configuration::getRofDirectory() +
           "data\\: " + zel::fillMarks(newsWording(news.state).english, {news.detail}) + why;
}
