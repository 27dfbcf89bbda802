// What the record of the war costs: a war and a save with it against the same without.

#include <filesystem>
#include <memory>
#include <vector>

#include <benchmark/benchmark.h>

#include "app/career/CareerEvents.h"
#include "app/record/CareerRecord.h"
#include "app/war/WarAdvance.h"
#include "bench/Benches.h"
#include "bench/PinnedCareer.h"
#include "bench/RatioReport.h"
#include "bench/WorkFolder.h"
#include "engine/core/UserDirectory.h"

namespace fs = std::filesystem;

namespace {

constexpr uint32_t RecordSeed = 20260;

/// A career with a user's folder of its own, and perhaps with a record.
struct RecordedCareer {
    explicit RecordedCareer(bool hasRecord) {
        zel::setUserDirectory(folder.path);
        pinned = std::make_unique<PinnedCareer>(hasRecord ? &record : nullptr);
    }
    Database& career() const { return *pinned->career; }
    MissionGenerator* generator() const { return pinned->generator.get(); }
    double recordSize() const { // in megabytes
        return static_cast<double>(fs::file_size(folder.path + "/" + "Saves/record.db")) / 1e6;
    }

    WorkFolder folder;
    CareerRecord record;
    std::unique_ptr<PinnedCareer> pinned;
};

/// With a save after each period, as players save.
void fightWar(RecordedCareer& war) {
    while (war.career().calendar().dateNumber() < 19181111) {
        advanceWar(war.career(), war.generator());
        war.career().storeFile(SaveFileName);
    }
    war.record.close();
}

void fightWars(benchmark::State& state, bool hasRecord) {
    for (auto unused : state) {
        static_cast<void>(unused);
        RecordedCareer war(hasRecord);
        fightWar(war);
    }
}

/// Keeps the events of a period, to play them again.
struct PeriodEvents : CareerObserver {
    void onVictory(const Database&, const Victory& victory) override {
        victories.push_back(victory);
    }
    void onPosting(const Database&, const Posting& posting) override {
        postings.push_back(posting);
    }
    std::vector<Victory> victories;
    std::vector<Posting> postings;
};

void saves(benchmark::State& state, bool hasRecord) {
    RecordedCareer war(hasRecord);
    Database& career = war.career();
    career.simulateToDate(1917, 6, 1);
    PeriodEvents period;
    career.observer = &period;
    advanceWar(career, war.generator());
    career.observer = hasRecord ? &war.record : nullptr;
    career.storeFile(SaveFileName);
    for (auto unused : state) {
        static_cast<void>(unused);
        state.PauseTiming();
        for (const Victory& victory : period.victories)
            war.record.onVictory(career, victory);
        for (const Posting& posting : period.postings)
            war.record.onPosting(career, posting);
        war.record.onWarAdvanced(career);
        state.ResumeTiming();
        career.storeFile(SaveFileName);
        state.PauseTiming();
        if (!hasRecord)
            war.record.close();
        state.ResumeTiming();
    }
}

} // namespace

double recordSizeOfWar() {
    RecordedCareer war(true);
    fightWar(war);
    return war.recordSize();
}

void registerRecordBenches() {
    using benchmark::kMillisecond;
    struct Bench {
        const char* name;
        void (*run)(benchmark::State&, bool);
        bool hasRecord;
    };
    const Bench benches[] = {
        {"war with its record/ours", fightWars, true},
        {"war with its record/bare", fightWars, false},
        {"save with its record/ours", saves, true},
        {"save with its record/bare", saves, false},
    };
    for (const Bench& bench : benches)
        benchmark::RegisterBenchmark(bench.name, bench.run, bench.hasRecord)->Unit(kMillisecond);
    RatioReport::setLimit("war with its record", 1.25);
    RatioReport::setLimit("save with its record", 1.5);
}
