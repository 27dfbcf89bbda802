#include "tests/app/screens/BookFlights.h"

#include <string>

#include "app/career/CareerEvents.h"
#include "app/career/CareerObserver.h"
#include "app/career/Database.h"
#include "app/career/Nation.h"
#include "app/career/PilotReport.h"

namespace {

constexpr int32_t Companions = 3;
constexpr int32_t Opponents = 4;
constexpr const char* OpponentNames[] = {"Max von Mueller", "August Hanko", "Otto Reinhold",
                                         "Wolfram-Friedrich von Hohenlohe"};
constexpr const char* CompanionNames[] = {"Arthur Rhys Davids", "Leonard Barlow", "Cecil Lewis"};

void addPlane(FlownMission& mission, int32_t pilot, const char* name, int32_t nation,
              const char* aircraft) {
    mission.plan.push_back({pilot, 0, name, aircraft, nation, 2});
    PilotReport& report = mission.reports.emplace_back();
    report.name = name;
    report.type = aircraft;
    report.plannedName = name;
    report.plannedType = aircraft;
    report.country = nation;
    report.pilot = pilot;
    report.human = mission.reports.size() == 1 ? 1 : 0;
}

/// x, z: from the player's base, in metres.
FlightEvent eventAt(const Squadron& squadron, FlightEventKind kind, float seconds, int32_t actor,
                    int32_t target, float x, float z) {
    FlightEvent event;
    event.kind = kind;
    event.seconds = seconds;
    event.actor = actor;
    event.target = target;
    event.amount = kind == FlightEventKind::Hit ? 7.0F : 0.2F;
    event.hasPosition = kind != FlightEventKind::Hit;
    event.x = squadron.baseX + x;
    event.y = 1500;
    event.z = squadron.baseZ + z;
    return event;
}

FlownMission flightOf(const Database& career, int32_t number) {
    const Squadron& squadron = career.playerSquadron();
    const bool isAlliedPlayer = isAllied(squadron.nation);
    const int32_t foe = isAlliedPlayer ? Germany : England;
    const char* own = isAlliedPlayer ? "se5a" : "albatrosd3";
    const char* other = isAlliedPlayer ? "albatrosd3" : "se5a";
    FlownMission mission;
    mission.log = "missionReport(book)[0].txt";
    const std::string player(zel::arrayText(career.player().name));
    addPlane(mission, career.playerPilot, player.c_str(), squadron.nation, own);
    for (int32_t i = 0; i < 1 + number % Companions; ++i)
        addPlane(mission, -1, CompanionNames[i], squadron.nation, own);
    const auto first = static_cast<int32_t>(mission.reports.size());
    for (int32_t i = 0; i < Opponents; ++i)
        addPlane(mission, -1, OpponentNames[i], foe, other);
    using Kind = FlightEventKind;
    const auto at = [&](Kind kind, float seconds, int32_t actor, int32_t target, float x, float z) {
        mission.events.push_back(eventAt(squadron, kind, seconds, actor, target, x, z));
    };
    at(Kind::Position, 1, 0, -1, 4000, 6000);
    at(Kind::Hit, 300, 0, first, 0, 0);
    at(Kind::Damage, 301, 0, first, 9000, 12000);
    at(Kind::Wound, 340, first + 1, 0, 10500, 14500);
    at(Kind::Position, 400, 0, -1, 8000, 15500);
    if (number % 3 == 0) {
        at(Kind::Kill, 420, 0, first, 7800, 13000);
        mission.reports[static_cast<size_t>(first)].shotDown = 1;
        mission.reports[static_cast<size_t>(first)].shotdownBy = 0;
        mission.reports[0].kills = {first};
    }
    at(Kind::Crash, 460, -1, 1, 6000, 16500);
    mission.reports[1].shotDown = 1;
    mission.reports[0].damage = number % 4 == 0 ? 0.2F : 0;
    mission.reports[0].flightStatus = 1;
    at(Kind::Landing, 1700, 0, -1, 300, 400);
    mission.fates.resize(mission.reports.size());
    mission.causes.resize(mission.reports.size());
    mission.seconds = 1710;
    return mission;
}

} // namespace

void addFlightsToBook(Database& career, int32_t count) {
    for (int32_t i = 0; i < count; ++i) {
        career.observer->onFlight(career, flightOf(career, i));
        Calendar day = career.calendar();
        day.addDays(i % 2);
        career.year = day.getYear();
        career.month = day.getMonth();
        career.day = day.getDay();
    }
}

void addFallToBook(Database& career) {
    const int32_t nation = career.playerSquadron().nation;
    const bool isAlliedPlayer = isAllied(nation);
    const int32_t other = isAlliedPlayer ? Germany : England;
    const char* const own = isAlliedPlayer ? "se5a" : "fokkerdr1";
    const char* const theirs = isAlliedPlayer ? "fokkerdr1" : "se5a";
    int32_t foe = 0;
    while (career.squadron(career.pilot(foe).squadron).nation != other)
        ++foe;
    FlownMission flight;
    flight.log = "none";
    const std::string names[] = {std::string(zel::arrayText(career.player().name)),
                                 std::string(zel::arrayText(career.pilot(foe).name))};
    addPlane(flight, career.playerPilot, names[0].c_str(), nation, own);
    addPlane(flight, foe, names[1].c_str(), other, theirs);
    for (const int32_t mate : career.squadronRoster(career.player().squadron))
        if (mate != career.playerPilot)
            addPlane(flight, mate, career.pilot(mate).name, nation, own);
    for (FlightPlane& plane : flight.plan)
        plane.squadron = career.pilot(plane.pilot).squadron;
    PilotReport& fallen = flight.reports[0];
    fallen.shotDown = fallen.dead = fallen.shotdownBy = 1;
    flight.reports[1].kills = {0};
    flight.events.push_back(
        eventAt(career.playerSquadron(), FlightEventKind::Kill, 420, 1, 0, 2000, 3000));
    flight.fates.resize(flight.reports.size());
    flight.causes.resize(flight.reports.size());
    career.observer->onFlight(career, flight);
    applyReports(flight.reports, career, true);
}

void addFlight(Database& career, int32_t victories) {
    FlownMission flight;
    flight.log = "none";
    flight.plan.push_back({career.playerPilot, career.player().squadron,
                           zel::arrayText(career.player().name),
                           isAllied(career.playerSquadron().nation) ? "se5a" : "albatrosd3",
                           career.playerSquadron().nation, 1});
    PilotReport& report = flight.reports.emplace_back();
    report.pilot = career.playerPilot;
    report.human = 1;
    flight.fates.resize(1);
    flight.causes.resize(1);
    career.observer->onFlight(career, flight);
    for (int32_t i = 0; i < victories; ++i) {
        const bool isOverGerman = isAllied(career.playerSquadron().nation);
        Victory victory = victoryOver(isOverGerman ? "August Hanko" : "Leonard Barlow",
                                      career.player().shotdowns, isOverGerman);
        victory.victor = career.playerPilot;
        victory.isSeen = true;
        career.observer->onVictory(career, victory);
        ++career.player().shotdowns;
    }
    ++career.player().missions;
}

Victory victoryOver(const char* victim, int32_t number, bool isGerman) {
    constexpr const char* Machines[][5] = {
        {"spad13", "soptriplane", "R.E.8", "sopcamel", "Balloon"},
        {"albatrosd3", "fokkerdr1", "DFW C.V", "fokkerd8", "Balloon"}};
    Victory victory;
    victory.victimName = victim;
    victory.victorAircraft = "se5a";
    victory.victimAircraft = Machines[isGerman ? 1 : 0][number % 5];
    return victory;
}

void fell(Database& career, int32_t pilot, int32_t victor) {
    Posting death;
    death.kind = PostingKind::Died;
    death.cause = PostingCause::ShotDown;
    death.pilot = pilot;
    death.other = victor;
    career.observer->onPosting(career, death);
    career.pilot(pilot).alive = 0;
}
