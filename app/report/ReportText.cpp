#include "app/report/ReportText.h"

#include <utility>

#include "app/career/Nation.h"
#include "app/career/Wording.h"
#include "app/report/LogWatch.h"
#include "app/report/Outcome.h"
#include "engine/core/System.h"

ReportColumns combatReportColumns(const std::vector<PilotReport>& pilots,
                                  const std::vector<FlightEvent>& events) {
    const Outcomes outcomes(pilots, events);
    ReportColumns columns;
    for (size_t i = 0; i < pilots.size(); ++i) {
        const PilotReport& pilot = pilots[i];
        if (pilot.name.empty())
            continue;
        const bool isLeft = isSameSide(pilot.country, pilots.front().country);
        ReportEntry entry;
        entry.pilot =
            textOf(wording::ReportedPilot, {reportedName(pilot), int32_t(pilot.kills.size())});
        Outcome outcome = outcomes.of(i);
        entry.fate = std::move(outcome.fate);
        entry.cause = std::move(outcome.cause);
        entry.reason = std::move(outcome.reason);
        entry.isPlayer = pilot.human != 0;
        (isLeft ? columns.left : columns.right).push_back(entry);
        if (entry.isPlayer && pilot.pilot < 0)
            columns.note = textOf(wording::UnknownPlayer, {pilot.name});
    }
    return columns;
}

const Wording& newsWording(LogState state) {
    return wording::LogNewsTexts[static_cast<size_t>(state)];
}

zel::String newsText(const LogNews& news) {
    const bool isFolder = news.state == LogState::NoFolder;
    const zel::String text = textOf(
        newsWording(news.state),
        {isFolder ? zel::system::shownText(zel::system::absolutePath(news.detail)) : news.detail});
    return news.fault == zel::FileFault::None
               ? text
               : textOf(wording::ProblemAndReason, {text, faultSentence(news.fault)});
}
