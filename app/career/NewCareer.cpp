#include "app/career/NewCareer.h"

#include <algorithm>

#include "app/career/Aircraft.h"
#include "app/career/Bases.h"
#include "app/career/CareerLock.h"
#include "app/career/CareerObserver.h"
#include "app/career/DataFolders.h"
#include "app/career/DataTables.h"
#include "app/career/Database.h"
#include "app/career/InvitationSchedule.h"
#include "app/career/NameLists.h"
#include "app/career/SquadronActivation.h"
#include "app/career/UnitNames.h"
#include "engine/core/Log.h"

namespace {

constexpr size_t SquadronsOfWar = 400; // if there are fewer files, generated ones fill up
constexpr size_t PilotsOfWar = 65536;  // room for most wars; what isn't used takes no memory
// A new pilot's skill goes up to a draw in this range; his missions to a draw, of a draw, of one in
// this range.
constexpr int32_t LeastHighestSkill = 2;
constexpr int32_t MostHighestSkill = 10;
constexpr int32_t LeastMissions = 5;
constexpr int32_t MostMissions = 75;
constexpr int32_t RoundsForNamedSquadron = 1249;
constexpr int32_t RoundsForFlyingSquadron = 2499;

constexpr int32_t NationsInTurn[] = {France, England, Germany}; // of generated squadrons

void makeHistoricalSquadron(Database& career, int32_t fileIndex) {
    SquadronFile& file = career.squadronFiles[fileIndex];
    const int32_t nation = nationOfKey(zel::arrayText(file.key));
    Squadron& made = career.squadron(addSquadron(career, nation));
    made.squadronFile = static_cast<int16_t>(fileIndex);
    zel::copyText(made.key, zel::arrayText(file.key).substr(0, LongestSquadronKey));

    std::vector<DataToken> tokens;
    for (const int32_t line : file.lines) {
        if (line < 0)
            continue;
        splitDataLine(zel::arrayText(career.dataLine(line).text), tokens);
        for (const DataToken& token : tokens) {
            if (!token.is("date"))
                continue;
            zel::copyText(file.lastDate, token.value);
            const std::string_view earliest = zel::arrayText(made.earliestDate);
            if (token.value.size() > 3 && (earliest.empty() || token.value < earliest))
                zel::copyText(made.earliestDate, token.value);
        }
    }
    if (zel::isLogged("Database", zel::LogDebug))
        zel::log(zel::String("Earliest date for squadron ") + zel::arrayText(made.key) +
                     " is: " + zel::arrayText(made.earliestDate),
                 "Database", zel::LogDebug);
}

void choosePlayer(Database& career, int32_t service) {
    const int32_t nation = nationOfService(service);
    const auto isOfNation = [nation](const Squadron& s) { return s.nation == nation; };
    if (std::none_of(career.squadrons.begin(), career.squadrons.end(), isOfNation)) {
        zel::log(zel::String("No squadron of nation ") + nation + " for the player", "Database",
                 zel::LogFatal);
        const auto ofSide =
            std::find_if(career.squadrons.begin(), career.squadrons.end(),
                         [&](const Squadron& s) { return isSameSide(s.nation, nation); });
        career.playerPilot =
            (ofSide != career.squadrons.end() ? *ofSide : career.squadrons.front()).slots[0];
        return;
    }

    const int32_t lastSquadron = career.squadronCount() - 1;
    for (int32_t counter = 1;; ++counter) {
        const Squadron& drawn = career.squadron(career.random.getInt(0, lastSquadron));
        career.playerPilot = drawn.slots[0];
        bool fits = drawn.nation == nation;
        const zel::String plane =
            chooseNationPlane(drawn.nation, career.year, career.month, career.day);
        if (fits && counter <= RoundsForNamedSquadron)
            fits = hasUnitName(unitNumber(career, drawn.squadronFile));
        // Checked only if the answer matters: no draw depends on it.
        const bool good =
            fits && (counter > RoundsForFlyingSquadron ||
                     hasAircraft(career, zel::String(zel::arrayText(drawn.key)), plane));
        if (good) {
            zel::console("Selected aircraft: " + plane);
            zel::console(zel::String("Counter: ") + counter);
            return;
        }
    }
}

} // namespace

int32_t nationOfService(int32_t service) {
    switch (service) {
    case ServiceEnglish:
        return England;
    case ServiceGerman:
        return Germany;
    default:
        return France;
    }
}

int32_t nationOfKey(std::string_view key) {
    const std::string_view digits = key.substr(0, 3);
    const bool isNumber =
        digits.size() == 3 &&
        std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    return isNumber ? zel::toInt(digits) : 0;
}

int32_t nationOfGenerated(int32_t squadron) { return NationsInTurn[squadron % 3]; }

int32_t addSquadron(Database& career, int32_t nation) {
    const int32_t index = career.squadronCount();
    career.squadrons.push_back(blank<Squadron>());
    career.squadrons.back().nation = static_cast<uint16_t>(nation);
    for (int32_t i = 0; i < PilotsOfNewSquadron; ++i) {
        Pilot pilot = blank<Pilot>();
        zel::copyText(pilot.name, drawPilotName(career, nation));
        pilot.squadron = index;
        const int32_t highestSkill = career.random.getInt(LeastHighestSkill, MostHighestSkill);
        pilot.skill = static_cast<uint8_t>(career.random.getInt(0, highestSkill));
        if (career.pilotCount() != career.playerPilot) {
            const int32_t widest = career.random.getInt(LeastMissions, MostMissions);
            const int32_t wide = career.random.getInt(0, widest);
            const int32_t narrow = career.random.getInt(0, wide);
            pilot.missions = static_cast<uint16_t>(career.random.getInt(0, narrow));
        }
        pilot.alive = 1;
        pilot.nation = static_cast<uint16_t>(nation);
        Squadron& squadron = career.squadrons.back();
        squadron.slots[squadron.pilotCount++] = career.addPilot(pilot);
    }
    assignBase(career, index, isAllied(nation), true);
    return index;
}

void createCareer(Database& career, int32_t service) {
    if (career.careerNumber == 0 || career.hasCareer())
        career.careerNumber = career.random.getInt(0, LastCareerNumber);
    if (service < ServiceFrench || service > ServiceGerman)
        zel::log(zel::String("Unknown service ") + service + ", taken for the French", "Database",
                 zel::LogWarning);

    career.isUnsaved = true;
    career.isReadOnly = career.lock != nullptr && !career.lock->take();
    readDataFiles(career);
    career.pilots.clear();
    career.squadrons.clear();
    if (career.hasBrokenHistory) {
        zel::log("No career is begun: the disk reports an error among the data files", "Database",
                 zel::LogError);
        return;
    }
    const Calendar start = Calendar::ofNumber(FirstDayOfCareer);
    career.year = start.getYear();
    career.month = start.getMonth();
    career.day = start.getDay();
    career.invitationYear = 0;
    career.invitationMonth = 0;
    career.invitationSquadron = NoInvitation;
    career.previousInvitation = NoInvitation;
    const int32_t latest = career.random.getInt(LeastLatestMonth, MostLatestMonth);
    scheduleInvitation(career, career.random.getInt(1, latest));

    const size_t planned = std::max(career.squadronFiles.size(), SquadronsOfWar);
    career.squadrons.reserve(planned);
    career.pilots.reserve(PilotsOfWar);
    for (int32_t i = 0; i < career.squadronFileCount(); ++i)
        makeHistoricalSquadron(career, i);
    while (career.squadrons.size() < SquadronsOfWar)
        addSquadron(career, nationOfGenerated(career.squadronCount()));

    choosePlayer(career, service);
    activateSquadrons(career, career.calendar());
    if (career.observer != nullptr)
        career.observer->onCareerBegun(career);
}
