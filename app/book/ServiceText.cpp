#include "app/book/ServiceText.h"

#include <algorithm>
#include <iterator>

#include "app/book/Citation.h"
#include "app/book/LogBook.h"
#include "app/book/LogBookText.h"
#include "app/book/LogBookWording.h"
#include "app/book/ServiceWording.h"
#include "app/book/Standing.h"
#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/career/UnitNames.h"

namespace {

// The keys of awards.csv, in the order of their texts.
constexpr std::string_view AwardKeys[] = {
    "vc",     "dso",           "dsobar",   "mc",    "mcbar",      "dsc",
    "dfc",    "dfcbar",        "dcm",      "mm",    "dfm",        "mention",
    "legion", "legionofficer", "medaille", "croix", "communique", "merite",
    "golden", "house",         "iron1",    "iron2", "cup",        "medalofhonor",
};
static_assert(std::size(AwardKeys) == std::size(wording::Awards));
// American ones with the same name as an Allied one.
constexpr std::pair<std::string_view, std::string_view> SameNames[] = {{"usdsc", "dsc"},
                                                                       {"uscroix", "croix"}};

zel::String dateText(int32_t date) { return bookDate(Calendar::ofNumber(date)); }

zel::String datedLine(int32_t date, const zel::String& what) {
    return textOf(wording::DatedHonour, {dateText(date), what});
}

zel::String moveText(const PilotPosting& posting, const Database& career) {
    const zel::String date = dateText(posting.date);
    const zel::String from = unitText(career, posting.from);
    const zel::String to = unitText(career, posting.squadron);
    const bool isFromNamed = isNamedUnit(career, posting.from);
    if (isNamedUnit(career, posting.squadron))
        return isFromNamed ? textOf(wording::WentTo, {date, from, to})
                           : textOf(wording::WentFromAnother, {date, to});
    return isFromNamed ? textOf(wording::WentToAnother, {date, from})
                       : textOf(wording::WentOn, {date});
}

zel::String postingText(const PilotPosting& posting, const Database& career) {
    const zel::String date = dateText(posting.date);
    const zel::String unit = unitText(career, posting.squadron);
    switch (posting.kind) {
    case PilotPosting::Came:
        return isNamedUnit(career, posting.squadron) ? textOf(wording::CameTo, {date, unit})
                                                     : textOf(wording::CameToAnother, {date});
    case PilotPosting::Moved:
        return moveText(posting, career);
    case PilotPosting::Succeeded:
        return textOf(wording::TookPlace, {date, posting.other});
    default:
        return posting.other.empty() ? textOf(wording::HasDied, {date})
                                     : textOf(wording::FellTo, {date, posting.other});
    }
}

zel::String victoryText(const PilotVictory& victory) {
    return textOf(victory.hasDied ? wording::WonAndKilled : wording::WonVictory,
                  {dateText(victory.date), machineText(victory.machine), victory.victim});
}

zel::String fateText(const RealAce& ace) {
    return textOf(wording::RealFates[size_t(ace.fate)],
                  {ace.fateDate == 0 ? zel::String() : dateText(ace.fateDate)});
}

/// "16 Albatros D.III, 2 Pfalz D.IIIa".
zel::String machinesText(const PilotRecord& pilot) {
    std::vector<zel::String> machines;
    for (const MachineCount& machine : machinesOf(pilot))
        machines.push_back(
            textOf(wording::CountOfMachines, {machine.count, machineText(machine.aircraft)}));
    return listed(machines);
}

void addHonours(std::vector<zel::String>& lines, const PilotRecord& pilot) {
    for (const RankGiven& one : pilot.honours.ranks)
        lines.push_back(datedLine(one.date, one.rank->name));
    for (const AwardGiven& one : pilot.honours.awards)
        lines.push_back(datedLine(one.date, awardText(*one.award)));
}

// Column widths of a victory, in letters.
constexpr size_t DayLetters = 13;
constexpr size_t TypeLetters = 15;
constexpr size_t VictimLetters = VictoryLetters - DayLetters - TypeLetters - 2;

} // namespace

zel::String awardText(const AwardRow& award) {
    std::string_view key = award.key;
    for (const auto& [own, other] : SameNames)
        if (own == key)
            key = other;
    const auto* const known = std::find(std::begin(AwardKeys), std::end(AwardKeys), key);
    return known == std::end(AwardKeys) ? zel::String(award.key)
                                        : textOf(wording::Awards[known - std::begin(AwardKeys)]);
}

zel::String awardText(const AwardRow& award, const Honours& honours, bool isBrief) {
    zel::String name = awardText(award);
    // One without letters after the name has a bar of its own: an officer of the order.
    if (const AwardRow* bar = honours.barOf(award))
        return award.letters.empty() ? awardText(*bar)
                                     : textOf(wording::AndBar, {isBrief ? award.letters : name});
    if (award.key != "croix" || honours.palms == 0)
        return name;
    return textOf(honours.palms == 1 ? wording::OnePalm : wording::Palms, {name, honours.palms});
}

zel::String awardCard(const AwardGiven& given, const Honours& honours) {
    return awardText(*given.award, honours, true) + "\n" +
           shortDate(Calendar::ofNumber(given.date));
}

bool isNamedUnit(const Database& career, int32_t squadron) {
    return hasUnitName(unitNumber(career, career.squadron(squadron).squadronFile));
}

zel::String unitText(const Database& career, int32_t squadron) {
    const int32_t number = unitNumber(career, career.squadron(squadron).squadronFile);
    return hasUnitName(number) ? unitName(number) : textOf(wording::UnnamedSquadron);
}

zel::String unitOrServiceText(const Database& career, int32_t squadron, int32_t date) {
    const int32_t number = unitNumber(career, career.squadron(squadron).squadronFile);
    return hasUnitName(number)
               ? unitName(number)
               : serviceName(career.squadron(squadron).nation, branchOfUnit(number), date);
}

zel::String unitNearText(const Database& career) {
    const zel::String base = nameInLanguage(zel::arrayText(career.playerSquadron().baseName));
    return textOf(wording::UnitNear, {unitText(career, career.player().squadron), base});
}

zel::String flyingText(const PilotRecord& pilot) {
    if (pilot.isUnreadable)
        return textOf(wording::RecordUnreadable);
    if (!pilot.served.hasFlights && pilot.flown > 0)
        return textOf(wording::MissionsFlown, {pilot.flown});
    const zel::String flown = countText(wording::FlightsFlown, pilot.flown);
    return pilot.isSinceKnown ? textOf(wording::FlyingSince, {dateText(pilot.since), flown})
                              : flown;
}

zel::String victoriesText(const PilotRecord& pilot) {
    if (pilot.unrecorded() > 0 && !pilot.isUnreadable)
        return textOf(wording::NotRecorded, {pilot.victoryCount, pilot.unrecorded()});
    return textOf(wording::VictoriesHead, {pilot.victoryCount});
}

int32_t victoriesOfLastMonth(const PilotRecord& pilot) {
    Calendar before = Calendar::ofNumber(pilot.until);
    before.subtractDays(Calendar::daysInMonth(before.getYear(), before.getMonth()));
    return int32_t(std::count_if(
        pilot.victories.begin(), pilot.victories.end(),
        [&](const PilotVictory& victory) { return victory.date > before.dateNumber(); }));
}

zel::String realText(const PilotRecord& pilot, int32_t today) {
    if (pilot.real == nullptr)
        return {};
    const zel::String all = countText(wording::Victories, pilot.real->victories);
    const int32_t now = BookTables::realScore(*pilot.real, today);
    if (now < 0 || now == pilot.real->victories)
        return textOf(wording::RealScore, {all, fateText(*pilot.real)});
    return textOf(wording::RealScoreToday, {all, now, fateText(*pilot.real)});
}

std::vector<zel::String> serviceLines(const PilotRecord& pilot, const Database& career) {
    std::vector<zel::String> lines = {titleOf(pilot.honours, pilot.name), unitNearText(career),
                                      flyingText(pilot)};
    addHonours(lines, pilot);
    if (pilot.honours.ribbons().empty())
        lines.push_back(textOf(wording::NoDecoration));
    lines.push_back(victoriesText(pilot));
    if (!pilot.victories.empty())
        lines.push_back(textOf(wording::ByMachine, {machinesText(pilot)}));
    return lines;
}

std::vector<zel::String> pilotLines(const PilotRecord& pilot, const Database& career) {
    std::vector<zel::String> lines = {titleOf(pilot.honours, pilot.name),
                                      unitOrServiceText(career, pilot.squadron, pilot.until),
                                      flyingText(pilot)};
    for (const PilotPosting& posting : pilot.postings)
        lines.push_back(postingText(posting, career));
    addHonours(lines, pilot);
    lines.push_back(victoriesText(pilot));
    for (const PilotVictory& victory : pilot.victories)
        lines.push_back(victoryText(victory));
    if (const zel::String real = realText(pilot, career.calendar().dateNumber()); !real.empty())
        lines.push_back(real);
    return lines;
}

std::vector<zel::String> stationLines(const PilotRecord& pilot, const Database& career) {
    std::vector<std::pair<int32_t, zel::String>> dated;
    for (const PilotPosting& posting : pilot.postings)
        dated.emplace_back(posting.date, postingText(posting, career));
    for (const RankGiven& one : pilot.honours.ranks)
        dated.emplace_back(one.date, datedLine(one.date, one.rank->name));
    for (const AwardGiven& one : pilot.honours.awards)
        dated.emplace_back(one.date, datedLine(one.date, awardText(*one.award)));
    std::stable_sort(dated.begin(), dated.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<zel::String> lines;
    if (pilot.postings.empty())
        lines.push_back(textOf(wording::NoPostingKnown));
    for (const auto& [date, text] : dated)
        lines.push_back(text);
    return lines;
}

zel::String victoryLine(const PilotVictory& victory) {
    const auto victim = [&](const zel::String& name) {
        return victory.hasDied ? textOf(wording::LateName, {name}) : name;
    };
    zel::String name = victim(victory.victim);
    if (size_t(name.length()) > VictimLetters)
        name = victim(shortName(victory.victim));
    return column(shortDate(Calendar::ofNumber(victory.date)), DayLetters) + " " +
           column(machineText(victory.machine, TypeLetters), TypeLetters) + " " +
           column(name, VictimLetters);
}

std::vector<zel::String> severalPilots(const Database& career, const std::vector<int32_t>& pilots) {
    constexpr size_t MostListed = 12;
    if (pilots.empty())
        return {};
    std::vector<zel::String> lines = {textOf(wording::SeveralPilots)};
    // If only one is over the limit, show him instead of "and 1 more".
    const size_t shown = pilots.size() <= MostListed + 1 ? pilots.size() : MostListed;
    for (size_t i = 0; i < shown; ++i) {
        const Pilot& pilot = career.pilot(pilots[i]);
        const zel::String name = zel::arrayText(pilot.name);
        lines.push_back(isNamedUnit(career, pilot.squadron)
                            ? textOf(wording::PilotOfUnit,
                                     {name, unitText(career, pilot.squadron), pilot.shotdowns})
                            : textOf(wording::PilotFigures, {name, pilot.shotdowns}));
    }
    if (shown < pilots.size())
        lines.push_back(textOf(wording::MorePilots, {int32_t(pilots.size() - shown)}));
    return lines;
}
