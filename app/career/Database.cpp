#include "app/career/Database.h"

#include <algorithm>

#include "app/career/Aircraft.h"
#include "app/career/Bases.h"
#include "app/career/InvitationSchedule.h"
#include "app/career/UnitNames.h"
#include "engine/core/Log.h"

namespace {

constexpr int32_t StartYear = 1915;
constexpr int32_t StartMonth = 12;
constexpr int32_t StartDay = 1;
constexpr size_t SquadronsOfWar = 400; // generated ones fill up to this
constexpr int32_t PilotsOfNewSquadron = 12;
// A new pilot's skill goes up to a draw in this range; his missions to a draw, of a draw, of one in
// this range.
constexpr int32_t LeastHighestSkill = 2;
constexpr int32_t MostHighestSkill = 10;
constexpr int32_t LeastMissions = 5;
constexpr int32_t MostMissions = 75;
constexpr int32_t RoundsForNamedSquadron = 1249;
constexpr int32_t RoundsForFlyingSquadron = 2499;

/// Indices of the name lists.
enum NamesOf : int32_t { FrenchNames = 0, EnglishNames = 1, GermanNames = 2, AmericanNames = 3 };
constexpr const char* NameListPrefixes[] = {"France", "England", "Germany", "USA"};

constexpr int32_t NationsInTurn[] = {France, England, Germany}; // of generated squadrons

Database* currentDatabase = nullptr;

int32_t nameListOf(int32_t nation) {
    switch (nation) {
    case France:
        return FrenchNames;
    case England:
        return EnglishNames;
    case Usa:
        return AmericanNames;
    case Germany:
        return GermanNames;
    default:
        zel::console(zel::String("UNKNOWN NATION: ") + nation);
        return nation <= 499 ? EnglishNames : GermanNames;
    }
}

/// One draw; an empty list gives an empty name without one.
std::string_view drawName(const EntireFile& list, zel::Random& random) {
    if (list.lineCount() == 0)
        return {};
    return list.line(random.getInt(0, list.lineCount() - 1)).view();
}

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

/// The nation in front of a squadron file's key; 0 if no three digits stand there.
int32_t nationOfKey(std::string_view key) {
    const std::string_view digits = key.substr(0, 3);
    const bool isNumber =
        digits.size() == 3 &&
        std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    return isNumber ? zel::toInt(digits) : 0;
}

} // namespace

Database::Database() {
    currentDatabase = this;
    for (const auto& [lists, ending] :
         {std::pair{firstNames, "_1st.txt"}, {lastNames, "_2nd.txt"}}) {
        for (int32_t i = 0; i < 4; ++i) {
            const zel::String file = zel::String("Data/Names/") + NameListPrefixes[i] + ending;
            if (!lists[i].loadFile(file) || lists[i].lineCount() == 0)
                zel::log("No names in " + file, "Database", zel::LogWarning);
        }
    }
    careerNumber = random.getInt(0, LastCareerNumber);
}

Database::~Database() {
    if (currentDatabase == this)
        currentDatabase = nullptr;
}

Database* Database::instance() { return currentDatabase; }

uint32_t Database::careerSeed() const {
    // Two rounds of a multiplicative hash, so that neighbouring days share nothing.
    uint32_t mix = static_cast<uint32_t>(careerNumber) ^
                   (static_cast<uint32_t>(calendar().dateNumber()) * 0x9E3779B9U);
    mix = (mix ^ (mix >> 16)) * 0x85EBCA6BU;
    mix = (mix ^ (mix >> 13)) * 0xC2B2AE35U;
    mix ^= mix >> 16;
    return mix != 0 ? mix : 1;
}

zel::String Database::drawPilotName(int32_t nation) {
    const int32_t list = nameListOf(nation);
    const std::string_view last = drawName(lastNames[list], random);
    const std::string_view first = drawName(firstNames[list], random);
    if (first.empty() || last.empty())
        return zel::String(first.empty() ? last : first);
    return zel::String(first) + " " + last;
}

int32_t Database::addSquadron(int32_t nation) {
    const auto index = static_cast<int32_t>(squadrons.size());
    squadrons.push_back(blank<Squadron>());
    squadrons.back().nation = static_cast<uint16_t>(nation);
    for (int32_t i = 0; i < PilotsOfNewSquadron; ++i) {
        Pilot pilot = blank<Pilot>();
        zel::copyText(pilot.name, drawPilotName(nation));
        pilot.squadron = index;
        const int32_t highestSkill = random.getInt(LeastHighestSkill, MostHighestSkill);
        pilot.skill = static_cast<uint8_t>(random.getInt(0, highestSkill));
        const auto pilotIndex = static_cast<int32_t>(pilots.size());
        if (pilotIndex != playerPilot) {
            const int32_t widest = random.getInt(LeastMissions, MostMissions);
            const int32_t wide = random.getInt(0, widest);
            const int32_t narrow = random.getInt(0, wide);
            pilot.missions = static_cast<uint16_t>(random.getInt(0, narrow));
        }
        pilot.alive = 1;
        pilot.nation = static_cast<uint16_t>(nation);
        pilots.push_back(pilot);
        Squadron& squadron = squadrons.back();
        squadron.slots[squadron.pilotCount++] = pilotIndex;
    }
    assignBase(*this, index, isAllied(nation), true);
    return index;
}

void Database::makeHistoricalSquadron(int32_t fileIndex) {
    SquadronFile& file = squadronFiles[fileIndex];
    const int32_t nation = nationOfKey(zel::arrayText(file.key));
    Squadron& made = squadron(addSquadron(nation));
    made.squadronFile = static_cast<int16_t>(fileIndex);
    zel::copyText(made.key, zel::arrayText(file.key).substr(0, 11));

    std::vector<DataToken> tokens;
    for (const int32_t line : file.lines) {
        if (line < 0)
            continue;
        splitDataLine(zel::arrayText(dataLine(line).text), tokens);
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

void Database::createCareer(int32_t service) {
    if (careerNumber == 0 || hasCareer())
        careerNumber = random.getInt(0, LastCareerNumber);
    if (service < ServiceFrench || service > ServiceGerman)
        zel::log(zel::String("Unknown service ") + service + ", taken for the French", "Database",
                 zel::LogWarning);

    readDataFiles();
    pilots.clear();
    squadrons.clear();
    year = StartYear;
    month = StartMonth;
    day = StartDay;
    invitationYear = 0;
    invitationMonth = 0;
    invitationSquadron = NoInvitation;
    previousInvitation = NoInvitation;
    const int32_t latest = random.getInt(LeastLatestMonth, MostLatestMonth);
    scheduleInvitation(*this, random.getInt(1, latest));

    const size_t planned = std::max(squadronFiles.size(), SquadronsOfWar);
    squadrons.reserve(planned);
    pilots.reserve(planned * PilotsOfNewSquadron);
    for (size_t i = 0; i < squadronFiles.size(); ++i)
        makeHistoricalSquadron(static_cast<int32_t>(i));
    while (squadrons.size() < SquadronsOfWar)
        addSquadron(NationsInTurn[squadrons.size() % 3]);

    choosePlayer(service);
    activateSquadrons(year, month, day);
}

void Database::choosePlayer(int32_t service) {
    const int32_t nation = nationOfService(service);
    const auto isOfNation = [nation](const Squadron& s) { return s.nation == nation; };
    if (std::none_of(squadrons.begin(), squadrons.end(), isOfNation)) {
        zel::log(zel::String("No squadron of nation ") + nation + " for the player", "Database",
                 zel::LogFatal);
        const auto ofSide =
            std::find_if(squadrons.begin(), squadrons.end(),
                         [&](const Squadron& s) { return isSameSide(s.nation, nation); });
        playerPilot = (ofSide != squadrons.end() ? *ofSide : squadrons.front()).slots[0];
        return;
    }

    const auto lastSquadron = static_cast<int32_t>(squadrons.size()) - 1;
    for (int32_t counter = 1;; ++counter) {
        const Squadron& drawn = squadron(random.getInt(0, lastSquadron));
        playerPilot = drawn.slots[0];
        bool fits = drawn.nation == nation;
        const zel::String plane = chooseNationPlane(drawn.nation, year, month, day);
        if (fits && counter <= RoundsForNamedSquadron)
            fits = hasUnitName(unitNumber(*this, drawn.squadronFile));
        // Asked only where the answer matters: no draw depends on it.
        const bool good = fits && (counter > RoundsForFlyingSquadron ||
                                   hasAircraft(zel::String(zel::arrayText(drawn.key)), plane));
        if (good) {
            zel::console("Selected aircraft: " + plane);
            zel::console(zel::String("Counter: ") + counter);
            return;
        }
    }
}
