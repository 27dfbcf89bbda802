#include "tools/warstats/WarRun.h"

#include <algorithm>
#include <set>

#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/career/NewCareer.h"
#include "app/career/UnitNames.h"
#include "app/mission/MissionGenerator.h"
#include "app/war/Invitations.h"
#include "app/war/WarAdvance.h"
#include "engine/core/Clock.h"
#include "engine/core/Random.h"

namespace warstats {

namespace {

constexpr uint32_t MissionsPerPeriod = 10; // planned for the figures of missions, and not flown
constexpr int32_t ManyVictories = 40;
constexpr size_t Ten = 10;
constexpr size_t Twenty = 20;
constexpr int32_t FirstJasta = 501001;
constexpr int32_t LastJasta = 501100;

/// Makes everything follow from the seed.
void pin(uint32_t seed) {
    zel::setTickSource([] { return uint32_t(0); });
    zel::sharedRandom(); // built at its first use, which takes a static number
    zel::Random::setStaticNumber(seed);
    zel::seedSharedRandom(0);
}

zel::String keyOf(const Squadron& squadron) { return zel::String(zel::arrayText(squadron.key)); }

/// Counts what the player's mission in the generator's plan meets.
void countMission(const Database& career, const std::vector<PlannedPlane>& plan,
                  const RealWarTables& real, WarFigures& figures) {
    const auto isEnemy = [&](const PlannedPlane& plane) {
        return !isSameSide(plane.nation, plan.front().nation);
    };
    const auto enemy = std::find_if(plan.begin(), plan.end(), isEnemy);
    if (enemy == plan.end())
        return;
    const int32_t month = career.year * 100 + career.month;
    const bool flew =
        real.flew(keyOf(career.squadron(enemy->squadron)).c_str(), enemy->type.c_str(), month);
    auto& enemies = isAllied(enemy->nation) ? figures.realAllies : figures.realGermans;
    for (size_t i = 0; i < EnemyMonths.size(); ++i)
        if (month == EnemyMonths[i])
            enemies[i].add(flew);
    if (career.year == 1917 && isAllied(plan.front().nation))
        figures.metHistoric.add(std::any_of(plan.begin(), plan.end(), [&](const PlannedPlane& p) {
            return isEnemy(p) && career.pilot(p.pilot).historic != 0;
        }));
}

void sampleMissions(Database& career, MissionGenerator& generator, const RealWarTables& real,
                    WarFigures& figures) {
    const int32_t month = career.year * 100 + career.month;
    const bool isWanted =
        career.year == 1917 || std::count(EnemyMonths.begin(), EnemyMonths.end(), month) != 0;
    for (uint32_t i = 0; isWanted && i < MissionsPerPeriod; ++i) {
        generator.reseed(career.careerSeed() + i);
        generator.planMission(true);
        if (!generator.plan.empty())
            countMission(career, generator.plan, real, figures);
    }
}

/// Whether a unit without a name, such as one of two-seaters, would invite the player now. The
/// search's draws are undone.
void sampleInvitation(const Database& career, MissionGenerator& generator, WarFigures& figures) {
    const zel::Random shared = zel::sharedRandom();
    const zel::Random ofTypes = generator.random;
    const int32_t inviting = pickInvitationSquadron(career);
    zel::sharedRandom() = shared;
    generator.random = ofTypes;
    figures.unnamedInvitations.add(inviting >= 0 && !hasUnitName(unitNumber(career, inviting)));
}

/// The scores at the Armistice.
void countScores(const Database& career, const RealWarTables& real, WarFigures& figures) {
    const std::set<std::string> realBest = real.best(Twenty);
    const std::vector<int32_t> best = bestPilots(career.pilots, Twenty);
    for (size_t i = 0; i < best.size(); ++i) {
        const Pilot& pilot = career.pilot(best[i]);
        figures.historicAmongTen += i < Ten && pilot.historic != 0 ? 1 : 0;
        figures.realAmongTwenty += static_cast<int32_t>(
            pilot.historic != 0 ? realBest.count(std::string(zel::arrayText(pilot.name))) : 0);
    }
    for (const Pilot& pilot : career.pilots) {
        const size_t nation = nationIndex(pilot.nation);
        if (nation < NationCount)
            figures.bestOf[nation] = std::max<int32_t>(figures.bestOf[nation], pilot.shotdowns);
        figures.historicForty += pilot.historic != 0 && pilot.shotdowns >= ManyVictories ? 1 : 0;
    }
    figures.best = *std::max_element(figures.bestOf.begin(), figures.bestOf.end());
}

/// Which of the named men are alive, compared with history.
void countFates(const Database& career, const RealWarTables& real, WarFigures& figures) {
    for (const PilotFile& file : career.pilotFiles) {
        const auto man = real.men.find(std::string(zel::arrayText(file.name)));
        if (file.joined == 0 || man == real.men.end())
            continue;
        ++figures.joined;
        const auto death = figures.tally.deathOf.find(file.pilotIndex);
        const bool dies = career.pilot(file.pilotIndex).alive == 0;
        const RealMan& was = man->second;
        if (was.fate == "killed" || was.fate == "died")
            figures.deadEarly.add(dies && death != figures.tally.deathOf.end() &&
                                  death->second < was.fateDate);
        else
            figures.survivorsDead.add(dies);
    }
}

void countNames(const Database& career, const RealWarTables& real, WarFigures& figures) {
    std::set<std::string> names;
    figures.men = career.pilotCount();
    for (const Pilot& pilot : career.pilots) {
        const std::string name(zel::arrayText(pilot.name));
        figures.namesakes += names.insert(name).second ? 0 : 1;
        figures.aceNames += pilot.historic == 0 && real.men.count(name) != 0 ? 1 : 0;
    }
}

} // namespace

WarFigures fightWar(uint32_t seed, int32_t service, const RealWarTables& real) {
    pin(seed);
    WarFigures figures;
    Database career;
    MissionGenerator generator;
    career.observer = &figures.tally;
    career.createCareer(service);
    const Calendar start = Calendar::ofNumber(FirstDayOfCareer);
    career.simulateToDate(start.getYear(), start.getMonth(), start.getDay());
    figures.tally.closePeriod(career);
    while (career.calendar().dateNumber() < FirstDayOfPeace) {
        sampleMissions(career, generator, real, figures);
        sampleInvitation(career, generator, figures);
        advanceWar(career, &generator);
        figures.tally.closePeriod(career);
    }
    countScores(career, real, figures);
    countFates(career, real, figures);
    countNames(career, real, figures);
    zel::setTickSource(nullptr);
    return figures;
}

Share startsInJasta(uint32_t firstSeed, int32_t count) {
    Share share;
    for (int32_t i = 0; i < count; ++i) {
        pin(firstSeed + static_cast<uint32_t>(i));
        Database career;
        career.createCareer(ServiceGerman);
        const int32_t unit = unitNumber(career, career.playerSquadron().squadronFile);
        share.add(unit >= FirstJasta && unit <= LastJasta);
    }
    zel::setTickSource(nullptr);
    return share;
}

} // namespace warstats
