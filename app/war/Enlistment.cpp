#include "app/war/Enlistment.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "app/career/Bases.h"
#include "app/career/CareerEvents.h"
#include "app/career/CareerObserver.h"
#include "app/career/Database.h"
#include "app/career/NameLists.h"
#include "app/career/SquadronRoster.h"
#include "app/mission/MissionLine.h"
#include "app/war/WarAdvance.h"

namespace {

constexpr int32_t TriesForName = 1000;

zel::String spelled(std::string_view name) { return missionName(zel::String(name)).toLower(); }

/// Puts him into the career on its first day, and reports that to the observer as part of the
/// beginning.
void enlist(Database& career, const Enlistment& enlistment) {
    const zel::String name = enlistment.name.trim(' ');
    CareerObserver* observer = std::exchange(career.observer, nullptr);
    if (career.isSquadron(enlistment.squadron))
        swapPilots(career, career.playerPilot, career.squadron(enlistment.squadron).slots[0],
                   PostingCause::Start);
    if (!name.empty())
        zel::copyText(career.player().name, name);
    career.observer = observer;
    if (observer != nullptr)
        observer->onCareerBegun(career);
}

} // namespace

bool isNameCharacter(char character) {
    constexpr std::string_view Breaking = "\"/\\:;={}";
    constexpr std::string_view Signs = "\x91\xA0\xD7\xF7"; // a quote, a blank, two of arithmetic
    if (Breaking.find(character) != Breaking.npos || Signs.find(character) != Signs.npos)
        return false;
    return character == '_' || missionName(zel::String(character)) != "_";
}

NameFault checkSpelling(const zel::String& name) {
    const zel::String plain = name.trim(' ');
    const std::string_view text = plain.view();
    if (text.empty())
        return NameFault::Empty;
    if (plain.length() > LongestPilotName)
        return NameFault::TooLong;
    return std::all_of(text.begin(), text.end(), isNameCharacter) ? NameFault::None
                                                                  : NameFault::Character;
}

NameCheck checkPilotName(const Database& career, const zel::String& name) {
    const zel::String plain = name.trim(' ');
    const Pilot& player = career.player();
    if (plain == zel::arrayText(player.name))
        return {};
    if (const NameFault fault = checkSpelling(plain); fault != NameFault::None)
        return {fault, {}};
    const zel::String wanted = spelled(plain);
    for (const PilotFile& file : career.pilotFiles)
        if (spelled(zel::arrayText(file.name)) == wanted)
            return {NameFault::OfAce, zel::String(zel::arrayText(file.name))};
    for (const Pilot& pilot : career.pilots)
        if (&pilot != &player && spelled(zel::arrayText(pilot.name)) == wanted)
            return {NameFault::OfPilot, zel::String(zel::arrayText(pilot.name))};
    return {};
}

zel::String drawAnotherName(const Database& career, zel::Random& random) {
    zel::String drawn(zel::arrayText(career.player().name));
    for (int32_t i = 0; i < TriesForName; ++i) {
        zel::String name = drawPilotName(career, career.player().nation, random);
        if (name != drawn && checkPilotName(career, name).fault == NameFault::None)
            return name;
    }
    return drawn;
}

void beginService(Database& career, MissionGenerator& generator, const Enlistment& enlistment,
                  int32_t year, int32_t month) {
    const bool isChosen = career.isSquadron(enlistment.squadron);
    const zel::String base = isChosen ? baseForPlayer(career, enlistment.squadron) : zel::String();
    if (isChosen || !enlistment.name.empty())
        enlist(career, enlistment);
    simulateToDate(career, generator, {year, month, 1});
    if (!isChosen)
        return;
    career.playerSquadron().active = 1; // it may come in the course of the month
    moveToBase(career, career.player().squadron, base);
}
