#include "app/war/WarAdvance.h"

#include <algorithm>
#include <memory>

#include "app/career/Bases.h"
#include "app/career/CareerObserver.h"
#include "app/career/Database.h"
#include "app/career/WarPeriods.h"
#include "app/mission/MissionGenerator.h"
#include "app/war/MissionSimulator.h"
#include "engine/core/Log.h"
#include "engine/core/Random.h"

namespace {

// Unseen missions at the start of a career, with the most steps of each, and in a period.
constexpr int32_t LeastStartMissions = 200;
constexpr int32_t MostStartMissions = 300;
constexpr int32_t StartUpSteps = 1000;
constexpr int32_t LeastMissions = 400;
constexpr int32_t MostMissions = 750;
// The steps of a period's mission: three draws from LeastSteps up, each bounded by the one before,
// the first by MostSteps.
constexpr int32_t LeastSteps = 10;
constexpr int32_t MostSteps = 30000;
constexpr int32_t SquadronsPerMove = 30; // one in this many changes its base in a period

WarObserver* warObserver = nullptr;

/// The days that simulateToDate covers, for the fraction that the observer receives.
struct SpanOfDays {
    int32_t firstDay; // as Calendar::dayNumber()
    int32_t days;
};

/// The running program's generator or, where there is none, one for as long as this object lives.
class GeneratorInUse {
public:
    MissionGenerator& operator*() { return *MissionGenerator::instance(); }

private:
    const std::unique_ptr<MissionGenerator> own =
        MissionGenerator::instance() == nullptr ? std::make_unique<MissionGenerator>() : nullptr;
};

void reportProgress(const Database& career, float share) {
    if (warObserver != nullptr)
        warObserver->onWarProgress(career.calendar(), share);
}

/// The fraction of the stretch that is done; that of the period if there is no stretch or it has no
/// days.
float shareDone(const Database& career, const SpanOfDays* stretch, float shareOfPeriod) {
    if (stretch == nullptr || stretch->days <= 0)
        return shareOfPeriod;
    const int32_t done = career.calendar().dayNumber() - stretch->firstDay;
    return std::clamp(static_cast<float>(done) / static_cast<float>(stretch->days), 0.0F, 1.0F);
}

/// Days of the period that begins on that date: three draws, none outside the years of the war.
int32_t drawDays(int32_t year) {
    const PeriodBounds* bounds = periodBounds(year);
    if (bounds == nullptr)
        return 0;
    const int32_t upper = zel::random(bounds->upperFrom, bounds->upperTo);
    const int32_t lower = zel::random(bounds->lowerFrom, bounds->lowerTo);
    return zel::random(lower, upper);
}

/// Fights a planned mission and applies the outcome to the career.
void fightPlan(Database& career, const std::vector<PlannedPlane>& plan, MissionSimulator& simulator,
               int32_t steps) {
    simulator.reset();
    simulator.loadPlan(plan);
    simulator.fight(steps);
    simulator.applyResult(career);
}

void fightPeriod(Database& career, MissionGenerator& generator, const SpanOfDays* stretch) {
    MissionSimulator simulator;
    int32_t count = zel::random(LeastMissions, MostMissions);
    if (career.year == 1915)
        count /= 2;
    for (int32_t i = 0; i < count; ++i) {
        planMission(generator, career, false);
        const int32_t outer = zel::random(LeastSteps, MostSteps);
        const int32_t middle = zel::random(LeastSteps, outer);
        const int32_t steps = zel::random(LeastSteps, middle);
        fightPlan(career, generator.plan, simulator, steps);
        const float share = static_cast<float>(i + 1) / static_cast<float>(count);
        reportProgress(career, shareDone(career, stretch, share));
    }
}

void advancePeriod(Database& career, MissionGenerator* generator, const SpanOfDays* stretch) {
    Calendar date = career.calendar();
    date.addDays(drawDays(date.getYear()));
    career.year = date.getYear();
    career.month = date.getMonth();
    career.day = date.getDay();
    career.activateSquadrons(career.year, career.month, career.day);
    if (generator != nullptr)
        fightPeriod(career, *generator, stretch);
    for (int32_t i = 0; i < career.squadronCount(); ++i)
        if (zel::random(0, SquadronsPerMove - 1) == 0)
            assignBase(career, i, isAllied(career.squadron(i).nation), true);
    career.applyHistory();
    if (career.observer != nullptr)
        career.observer->onWarAdvanced(career);
}

} // namespace

void setWarObserver(WarObserver* observer) { warObserver = observer; }

void advanceWar(Database& career, MissionGenerator* generator) {
    advancePeriod(career, generator, nullptr);
}

void simulateToDate(Database& career, MissionGenerator& generator, const Calendar& target) {
    const int32_t firstDay = career.calendar().dayNumber();
    const SpanOfDays stretch = {firstDay, target.dayNumber() - firstDay};

    MissionSimulator simulator;
    const int32_t count = zel::random(LeastStartMissions, MostStartMissions);
    for (int32_t i = 0; i < count; ++i) {
        planMission(generator, career, false);
        fightPlan(career, generator.plan, simulator, StartUpSteps);
        reportProgress(career, shareDone(career, &stretch, 0));
    }
    zel::console("SIMULATED MISSIONS");

    while (career.calendar().dateNumber() < target.dateNumber()) {
        const int32_t before = career.calendar().dateNumber();
        advancePeriod(career, &generator, &stretch);
        if (career.calendar().dateNumber() == before)
            break; // outside the years of the war the date doesn't move
    }
}

void Database::simulateToDate(int32_t toYear, int32_t toMonth, int32_t toDay) {
    ::simulateToDate(*this, *GeneratorInUse(), Calendar(toYear, toMonth, toDay));
}
