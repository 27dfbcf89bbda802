// A period of the war and a whole career against nothing but the draws that they take.

#include <memory>

#include <benchmark/benchmark.h>

#include "app/war/SquadronSimulator.h"
#include "bench/Benches.h"
#include "bench/PinnedCareer.h"
#include "bench/RatioReport.h"

#ifndef _WIN32
#include <sys/resource.h>
#endif

namespace {

/// How many values the work takes from all generators, to within a block of each.
template <typename Work> uint64_t drawsOf(const Work& work) {
    const uint64_t before = zel::Random::valuesMade();
    work();
    return zel::Random::valuesMade() - before;
}

void drawOnly(benchmark::State& state, uint64_t draws) {
    zel::Random random(PinnedSeed);
    for (auto unused : state) {
        static_cast<void>(unused);
        int64_t sum = 0;
        for (uint64_t i = 0; i < draws; ++i)
            sum += random.next() % 16;
        benchmark::DoNotOptimize(sum);
    }
}

/// A career of March 1917, restored before every period.
struct PinnedPeriod {
    PinnedPeriod() {
        pinned.career->simulateToDate(1917, 3, 1);
        squadrons = pinned.career->squadrons;
        pilots = pinned.career->pilots;
        dataLines = pinned.career->dataLines;
        pilotFiles = pinned.career->pilotFiles;
        date = pinned.career->calendar();
        player = pinned.career->playerPilot;
    }
    void restore() {
        Database& career = *pinned.career;
        career.squadrons = squadrons;
        career.pilots = pilots;
        career.dataLines = dataLines;
        career.pilotFiles = pilotFiles;
        career.year = date.getYear();
        career.month = date.getMonth();
        career.day = date.getDay();
        career.playerPilot = player;
        career.random.seed(PinnedSeed);
        pinned.generator->reseed(PinnedSeed);
        zel::seedSharedRandom(PinnedSeed);
        zel::Random::setStaticNumber(PinnedSeed);
    }
    PinnedCareer pinned;
    std::vector<Squadron> squadrons;
    std::vector<Pilot> pilots;
    std::vector<DataLine> dataLines;
    std::vector<PilotFile> pilotFiles;
    Calendar date{0, 1, 1};
    int32_t player = 0;
};

void period(benchmark::State& state) {
    PinnedPeriod start;
    for (auto unused : state) {
        static_cast<void>(unused);
        state.PauseTiming();
        start.restore();
        state.ResumeTiming();
        SquadronSimulator::advanceWar();
    }
}

void wholeCareer() {
    const PinnedCareer pinned;
    pinned.career->simulateToDate(1918, 11, 11);
}

void career(benchmark::State& state) {
    for (auto unused : state) {
        static_cast<void>(unused);
        wholeCareer();
    }
}

void periodBare(benchmark::State& state) {
    static const uint64_t draws = [] {
        PinnedPeriod start;
        start.restore();
        return drawsOf([] { SquadronSimulator::advanceWar(); });
    }();
    drawOnly(state, draws);
}

void careerBare(benchmark::State& state) {
    static const uint64_t draws = drawsOf(wholeCareer);
    drawOnly(state, draws);
}

} // namespace

double peakMemoryOfWar() {
    wholeCareer();
#ifdef _WIN32
    return 0;
#else
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
#endif
}

void registerCareerBenches() {
    using benchmark::kMillisecond;
    benchmark::RegisterBenchmark("A period of the war/ours", period)->Unit(kMillisecond);
    benchmark::RegisterBenchmark("A period of the war/bare", periodBare)->Unit(kMillisecond);
    RatioReport::setLimit("A period of the war", 1.7);
    benchmark::RegisterBenchmark("Career, 12.1915 to 11.1918/ours", career)
        ->Unit(kMillisecond)
        ->Iterations(1);
    benchmark::RegisterBenchmark("Career, 12.1915 to 11.1918/bare", careerBare)
        ->Unit(kMillisecond)
        ->Iterations(1);
    RatioReport::setLimit("Career, 12.1915 to 11.1918", 1.7);
}
