#include "app/career/CareerTexts.h"

#include <algorithm>
#include <iterator>
#include <numeric>

#include "app/career/Database.h"
#include "app/career/UnitNames.h"
#include "app/career/Wording.h"

namespace {

constexpr size_t AceRows = 10;

/// `own`: the form for the player himself.
zel::String scoreLine(const Database& career, int32_t index, const Wording& form,
                      const Wording& own) {
    const Pilot& pilot = career.pilot(index);
    return textOf(index == career.playerPilot ? own : form,
                  {zel::arrayText(pilot.name), pilot.shotdowns});
}

zel::String aceLine(const Database& career, int32_t index) {
    const bool isAlive = career.pilot(index).alive != 0;
    return isAlive ? scoreLine(career, index, wording::Score, wording::OwnScore)
                   : scoreLine(career, index, wording::LastScore, wording::OwnLastScore);
}

zel::String monthInLanguage(int32_t month) {
    return month >= 1 && month <= 12 ? textOf(wording::Months[month - 1]) : zel::String();
}

} // namespace

zel::String serviceText(int32_t service) {
    const bool isKnown = service == ServiceEnglish || service == ServiceGerman;
    return textOf(wording::Services[isKnown ? service : ServiceFrench]);
}

zel::String startDateText(int32_t year, int32_t month) {
    return textOf(wording::StartDate, {monthInLanguage(month), year});
}

zel::String pilotNameText(const zel::String& name) { return textOf(wording::PilotName, {name}); }

zel::String dateInLanguage(const Calendar& date) {
    const zel::String month = monthInLanguage(date.getMonth());
    if (date.getDay() == 1)
        return textOf(wording::FirstOfMonth, {month, date.getYear()});
    return textOf(wording::Date, {date.getDay(), month, date.getYear()});
}

zel::String bookDate(const Calendar& date) {
    const zel::String month = monthInLanguage(date.getMonth());
    if (date.getDay() == 1)
        return textOf(wording::BookFirstOfMonth, {month, date.getYear()});
    return textOf(wording::BookDate, {date.getDay(), month, date.getYear()});
}

zel::String shortDate(const Calendar& date) {
    const zel::String month = shortMonth(date.getMonth());
    if (date.getDay() == 1)
        return textOf(wording::ShortFirstOfMonth, {month, date.getYear()});
    return textOf(wording::ShortDate, {date.getDay(), month, date.getYear()});
}

zel::String shortMonth(int32_t month) {
    return month >= 1 && month <= 12 ? textOf(wording::ShortMonths[month - 1]) : zel::String();
}

zel::String joined(const std::vector<zel::String>& parts, const char* between) {
    zel::String whole;
    for (const zel::String& part : parts)
        if (!part.empty())
            whole += (whole.empty() ? "" : between) + part;
    return whole;
}

zel::String listed(const std::vector<zel::String>& parts) {
    zel::String list;
    for (size_t i = 0; i < parts.size(); ++i)
        list = i == 0 ? parts[i] : textOf(wording::ListGoesOn, {list, parts[i]});
    return list;
}

zel::String enumerated(const std::vector<zel::String>& parts) {
    if (parts.size() < 2)
        return listed(parts);
    return textOf(wording::ListEnds,
                  {listed({parts.begin(), std::prev(parts.end())}), parts.back()});
}

bool isWarOver(const Database& career) { return career.calendar().dateNumber() >= FirstDayOfPeace; }

zel::String missionButtonText(const Database& career) {
    return textOf(isWarOver(career) ? wording::WarIsOver : wording::NextMission);
}

zel::String baseText(const Database& career) {
    return textOf(wording::Base,
                  {nameInLanguage(zel::arrayText(career.playerSquadron().baseName))});
}

zel::String squadronText(const Database& career) {
    const int32_t number = unitNumber(career, career.playerSquadron().squadronFile);
    return hasUnitName(number) ? unitName(number) : zel::String();
}

std::vector<zel::String> squadronLines(const Database& career, size_t most) {
    std::vector<zel::String> lines;
    for (const int32_t pilot : career.squadronRoster(career.player().squadron))
        if (lines.size() < most)
            lines.push_back(scoreLine(career, pilot, wording::Score, wording::OwnScore));
    return lines;
}

std::vector<int32_t> bestPilots(const std::vector<Pilot>& pilots, size_t count) {
    std::vector<int32_t> best(pilots.size());
    std::iota(best.begin(), best.end(), 0);
    const auto end = best.begin() + static_cast<std::ptrdiff_t>(std::min(count, best.size()));
    std::partial_sort(best.begin(), end, best.end(), [&](int32_t a, int32_t b) {
        const Pilot& first = pilots[a];
        const Pilot& second = pilots[b];
        if (first.shotdowns != second.shotdowns)
            return first.shotdowns > second.shotdowns;
        if (first.missions != second.missions)
            return first.missions > second.missions;
        return a < b;
    });
    best.erase(end, best.end());
    return best;
}

std::vector<zel::String> aceLines(const Database& career) {
    std::vector<zel::String> lines;
    for (const int32_t index : bestPilots(career.pilots, AceRows)) {
        const Pilot& pilot = career.pilot(index);
        if (pilot.shotdowns >= AceShotdowns)
            lines.push_back(aceLine(career, index));
        else
            lines.push_back(lines.empty() ? textOf(wording::NoAces) : zel::String());
    }
    return lines;
}
