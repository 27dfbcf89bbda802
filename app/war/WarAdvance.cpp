#include <algorithm>
#include <memory>

#include "app/career/Database.h"
#include "app/mission/MissionGenerator.h"
#include "app/war/MissionSimulator.h"
#include "app/war/SquadronSimulator.h"
#include "engine/core/Log.h"
#include "engine/core/Random.h"

namespace {

/// The bounds of the two draws between which a period's days are drawn.
struct PeriodBounds {
    int32_t year;
    int32_t upperFrom, upperTo;
    int32_t lowerFrom, lowerTo;
};
constexpr PeriodBounds PeriodsByYear[] = {
    {1915, 16, 28, 1, 16},
    {1916, 16, 24, 1, 16},
    {1917, 16, 22, 1, 14},
    {1918, 14, 18, 1, 12},
};

constexpr int32_t StartUpSteps = 1000;

WarObserver* warObserver = nullptr;

// The stretch that is being simulated, for the share that an observer is told: its first day and
// its length in days; 0 while a single period is simulated.
int32_t stretchStart = 0;
int32_t stretchDays = 0;

void tellObserver(const Database& career, float shareOfPeriod) {
    if (warObserver == nullptr)
        return;
    float share = shareOfPeriod;
    if (stretchDays > 0) {
        const int32_t done = career.calendar().dayNumber() - stretchStart;
        share = std::clamp(static_cast<float>(done) / static_cast<float>(stretchDays), 0.0F, 1.0F);
    }
    warObserver->onWarProgress(career.calendar(), share);
}

/// Days of the period that begins on that date: three draws, none outside the years of the war.
int32_t drawDays(int32_t year) {
    for (const PeriodBounds& bounds : PeriodsByYear) {
        if (bounds.year != year)
            continue;
        const int32_t upper = zel::random(bounds.upperFrom, bounds.upperTo);
        const int32_t lower = zel::random(bounds.lowerFrom, bounds.lowerTo);
        return zel::random(lower, upper);
    }
    return 0;
}

void fightPeriod(Database& career, MissionGenerator& generator) {
    MissionSimulator simulator;
    int32_t count = zel::random(400, 750);
    if (career.year == 1915)
        count /= 2;
    for (int32_t i = 0; i < count; ++i) {
        generator.planMission(false);
        simulator.reset();
        simulator.loadPlan();
        const int32_t outer = zel::random(10, 30000);
        const int32_t middle = zel::random(10, outer);
        const int32_t steps = zel::random(10, middle);
        simulator.fight(steps);
        simulator.applyResult();
        tellObserver(career, static_cast<float>(i + 1) / static_cast<float>(count));
    }
}

} // namespace

void setWarObserver(WarObserver* observer) { warObserver = observer; }

void SquadronSimulator::advanceWar() {
    Database& career = *Database::instance();
    Calendar date = career.calendar();
    date.addDays(drawDays(date.getYear()));
    career.year = date.getYear();
    career.month = date.getMonth();
    career.day = date.getDay();
    career.activateSquadrons(career.year, career.month, career.day);
    if (MissionGenerator* generator = MissionGenerator::instance())
        fightPeriod(career, *generator);
    for (size_t i = 0; i < career.squadrons.size(); ++i)
        if (zel::random(0, 29) == 0)
            assignBase(static_cast<int32_t>(i), isAllied(career.squadrons[i].nation), true);
    career.applyHistory();
}

void Database::simulateToDate(int32_t toYear, int32_t toMonth, int32_t toDay) {
    std::unique_ptr<MissionGenerator> ownGenerator;
    if (MissionGenerator::instance() == nullptr)
        ownGenerator = std::make_unique<MissionGenerator>();
    MissionGenerator& generator = *MissionGenerator::instance();
    const Calendar target(toYear, toMonth, toDay);
    stretchStart = calendar().dayNumber();
    stretchDays = target.dayNumber() - stretchStart;

    MissionSimulator simulator;
    const int32_t count = zel::random(200, 300);
    for (int32_t i = 0; i < count; ++i) {
        generator.planMission(false);
        simulator.reset();
        simulator.loadPlan();
        simulator.fight(StartUpSteps);
        simulator.applyResult();
        tellObserver(*this, 0);
    }
    zel::console("SIMULATED MISSIONS");

    while (calendar().dateNumber() < target.dateNumber()) {
        const int32_t before = calendar().dateNumber();
        SquadronSimulator::advanceWar();
        if (calendar().dateNumber() == before)
            break; // outside the years of the war the date stands still
    }
    stretchDays = 0;
}
