#include "app/book/Condolence.h"

#include <algorithm>
#include <optional>

#include "app/book/Citation.h"
#include "app/book/CondolenceWording.h"
#include "app/book/PilotRecord.h"
#include "app/book/RecordedFlight.h"
#include "app/book/ServiceText.h"
#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/career/GroundObjects.h"
#include "app/career/Nation.h"
#include "app/career/UnitNames.h"
#include "app/record/Sqlite.h"
#include "app/report/Outcome.h"

namespace {

constexpr size_t MostAwards = 3; // the highest

/// The unit's name; empty for one without.
zel::String nameOfUnit(const Database& career, int32_t squadron) {
    const int32_t number = unitNumber(career, career.squadron(squadron).squadronFile);
    return hasUnitName(number) ? unitName(number) : zel::String();
}

/// What became of him in his last flight, sentence by sentence.
class LastFlight {
public:
    LastFlight(const RecordedFlight& flight, const Database& career)
        : flight(flight), career(career), reports(flight.mission.reports) {
        const auto own = std::find_if(reports.begin(), reports.end(), [&](const PilotReport& one) {
            return one.pilot == flight.pilot;
        });
        if (own != reports.end())
            place = int32_t(own - reports.begin());
    }

    std::vector<zel::String> sentences() const {
        if (place < 0)
            return {};
        std::vector<zel::String> all;
        if (const char* town = townOfEnd(flight, place))
            all.push_back(textOf(wording::LetterPlace, {nameInLanguage(town)}));
        all.push_back(cause(reports[place]));
        return all;
    }

private:
    zel::String cause(const PilotReport& own) const {
        if (own.shotdownBy >= 0)
            return byVictor(reports[own.shotdownBy]);
        if (own.shotdownByOwn >= 0 && own.shotdownByOwn != place)
            return textOf(wording::LetterOwnSide);
        if (own.shotDown == 0)
            return textOf(wording::LetterWounds);
        const bool isAlone = own.shotdownByOwn < 0 &&
                             Outcomes(reports, flight.mission.events).isUntouched(size_t(place));
        return textOf(isAlone ? wording::LetterCrashAlone : wording::LetterCrash);
    }

    zel::String byVictor(const PilotReport& victor) const {
        if (groundObject(victor.type) != nullptr)
            return textOf(wording::LetterGround, {reportedName(victor)});
        const zel::String name = career.isPilot(victor.pilot)
                                     ? zel::String(zel::arrayText(career.pilot(victor.pilot).name))
                                     : reportedName(victor);
        const auto& plan = flight.mission.plan;
        const auto plane = std::find_if(plan.begin(), plan.end(), [&](const FlightPlane& one) {
            return one.pilot >= 0 && one.pilot == victor.pilot;
        });
        const zel::String unit =
            plane == plan.end() ? zel::String() : nameOfUnit(career, plane->squadron);
        return unit.empty() ? textOf(wording::LetterVictor, {name})
                            : textOf(wording::LetterVictorOf, {name, unit});
    }

    const RecordedFlight& flight;
    const Database& career;
    const std::vector<PilotReport>& reports;
    int32_t place = -1; // of his report
};

zel::String flightsSentence(const PilotRecord& pilot) {
    if (pilot.flown == 0)
        return {}; // the record lacks them
    const zel::String flown = countText(wording::FlightsOfLetter, pilot.flown);
    if (pilot.victoryCount > 0)
        return textOf(wording::LetterVictories,
                      {flown, countText(wording::Victories, pilot.victoryCount)});
    return pilot.flown == 1 ? textOf(wording::LetterFirst)
                            : textOf(wording::LetterFlights, {flown});
}

/// Empty without a decoration.
zel::String awardsSentence(const PilotRecord& pilot) {
    const std::vector<AwardGiven> worn = pilot.honours.ribbons();
    std::vector<zel::String> names;
    for (size_t i = 0; i < std::min(worn.size(), MostAwards); ++i)
        names.push_back(awardText(*worn[i].award, pilot.honours));
    zel::String list = listed(names);
    if (worn.size() > MostAwards)
        list = textOf(wording::LetterMoreAwards, {list, int32_t(worn.size() - MostAwards)});
    return list.empty() ? list : textOf(wording::LetterAwards, {list});
}

/// The number of the flight in which he died; 0 if the record lacks it.
int32_t lastFlightOf(SqliteFile& record, int32_t pilot) {
    SqliteStatement row(record, "SELECT number FROM flight WHERE pilot = ? AND dead <> 0");
    row.with(pilot);
    return row.next() ? row.integer(0) : 0;
}

/// lastFlight: nothing if the record lacks it.
zel::String letterText(const Database& career, const PilotRecord& pilot,
                       const std::optional<RecordedFlight>& lastFlight) {
    const size_t service = serviceIndex(pilot.nation);
    std::vector<zel::String> sentences = {
        textOf(lastFlight ? wording::SadDuties[service] : wording::SadLateDuties[service],
               {titleOf(pilot.honours, pilot.name)})};
    if (lastFlight)
        for (const zel::String& one : LastFlight(*lastFlight, career).sentences())
            sentences.push_back(one);
    sentences.push_back(flightsSentence(pilot));
    sentences.push_back(awardsSentence(pilot));
    sentences.push_back(textOf(wording::LetterEnds[service]));
    return joined(sentences, " ");
}

/// The posting by which somebody took another's place.
struct Succession {
    int32_t successor = -1;
    int32_t predecessor = -1;
    int32_t date = 0; // yyyymmdd
};

/// How the pilot became the player's; in nobody's place if the record has no such posting.
Succession successionOf(SqliteFile& record, const Database& career, int32_t pilot) {
    SqliteStatement row(record, "SELECT other, date FROM posting WHERE pilot = ?"
                                " AND kind IN ('transferred', 'succeeded')" // as the index has it
                                " AND kind = 'succeeded' ORDER BY id DESC LIMIT 1");
    row.with(pilot);
    if (!row.next() || !career.isPilot(row.index(0)) || row.index(0) == pilot)
        return {};
    return {pilot, row.index(0), row.integer(1)};
}

/// Who took the place of that pilot.
Succession successionAfter(SqliteFile& record, const Database& career, int32_t pilot) {
    Succession one = successionOf(record, career, career.playerPilot);
    for (int32_t step = 0; one.predecessor >= 0 && one.predecessor != pilot &&
                           step < career.pilotCount(); // a damaged record may lead in a circle
         ++step)
        one = successionOf(record, career, one.predecessor);
    return one.predecessor == pilot ? one : Succession();
}

/// The successor with his title: today's player if the record names no successor. Empty if nobody
/// has come.
zel::String successorTitle(SqliteFile& record, const Database& career, const BookTables& tables,
                           int32_t fallen, const Succession& known) {
    const bool isFollowed = fallen != career.playerPilot && career.player().alive != 0;
    if (known.successor < 0 && !isFollowed)
        return {};
    const PilotRecord next = readPilot(record, career, tables,
                                       known.successor < 0 ? career.playerPilot : known.successor);
    return titleOf(known.successor < 0 ? next.honours : honoursOn(next.honours, known.date),
                   next.name);
}

} // namespace

Condolence condolenceFor(SqliteFile& record, const Database& career, const BookTables& tables,
                         int32_t pilot) {
    Condolence letter;
    if (!career.isPilot(pilot))
        return letter;
    const PilotRecord fallen = readPilot(record, career, tables, pilot);
    const Succession succession = successionAfter(record, career, pilot);
    std::optional<RecordedFlight> lastFlight;
    if (const int32_t number = lastFlightOf(record, pilot); number > 0)
        lastFlight = readFlight(record, number);
    letter.date = lastFlight             ? lastFlight->date
                  : succession.date != 0 ? succession.date
                                         : career.calendar().dateNumber();
    letter.nation = fallen.nation;
    letter.greeting = textOf(wording::LetterGreeting);
    letter.text = letterText(career, fallen, lastFlight);
    const zel::String unit = nameOfUnit(career, fallen.squadron);
    letter.sender =
        unit.empty() ? textOf(wording::LetterSenderAlone) : textOf(wording::LetterSender, {unit});
    const zel::String successor = successorTitle(record, career, tables, pilot, succession);
    letter.hasSuccessor = !successor.empty();
    if (letter.hasSuccessor)
        letter.successor = textOf(wording::HasReported, {successor});
    else
        letter.successor =
            textOf(isWarOver(career) ? wording::NobodyInPeace : wording::NobodyReported);
    return letter;
}

int32_t predecessorOf(SqliteFile& record, const Database& career, int32_t pilot) {
    return successionOf(record, career, pilot).predecessor;
}

int32_t lastFallen(SqliteFile& record, const Database& career) {
    if (!career.isPilot(career.playerPilot))
        return -1;
    if (career.player().alive == 0)
        return career.playerPilot;
    return career.player().missions > 0 ? -1 : predecessorOf(record, career, career.playerPilot);
}

std::vector<zel::String> condolenceLines(const Condolence& letter) {
    return {bookDate(Calendar::ofNumber(letter.date)), letter.greeting, letter.text, letter.sender,
            letter.successor};
}
