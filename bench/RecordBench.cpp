// What the record of the war costs: a war and a save with it against the same without.

#include <filesystem>
#include <memory>
#include <vector>

#include <benchmark/benchmark.h>

#include "app/book/LogBook.h"
#include "app/career/CareerEvents.h"
#include "app/record/CareerRecord.h"
#include "app/record/Sqlite.h"
#include "app/war/WarAdvance.h"
#include "bench/Benches.h"
#include "bench/PinnedCareer.h"
#include "bench/RatioReport.h"
#include "bench/WorkFolder.h"
#include "engine/core/UserDirectory.h"

namespace fs = std::filesystem;

namespace {

constexpr size_t UsualEvents = 200; // of a flight
constexpr size_t MostEvents = 2000; // that a flight's account holds

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

/// A flight of eight planes with so many events.
FlownMission flightWith(size_t events) {
    FlownMission flight;
    flight.log = "missionReport(2026-11-22_08-00-00)[0].txt";
    for (int32_t place = 0; place < 8; ++place) {
        flight.plan.push_back({place, 0, "Albert Reed", "sopwith camel", 102, 2});
        flight.reports.emplace_back().pilot = place;
        flight.reports.back().name = "Albert Reed";
        flight.reports.back().type = "Sopwith Camel";
    }
    flight.fates.assign(8, "Escaped without a scratch");
    flight.causes.resize(8);
    flight.events.assign(events, {FlightEventKind::Damage, 61.24F, 0, 5, 0.012F, true, 211602.25F,
                                  1580.125F, 63020.5F});
    return flight;
}

/// With a flight and a save in each period, as players play.
void fightWar(RecordedCareer& war, size_t eventsOfFlight) {
    const FlownMission flight = flightWith(eventsOfFlight);
    while (war.career().calendar().dateNumber() < 19181111) {
        if (war.career().observer != nullptr)
            war.career().observer->onFlight(war.career(), flight);
        advanceWar(war.career(), war.generator());
        war.career().storeFile(SaveFileName);
    }
    war.record.close();
}

void fightWars(benchmark::State& state, bool hasRecord) {
    for (auto unused : state) {
        static_cast<void>(unused);
        RecordedCareer war(hasRecord);
        fightWar(war, UsualEvents);
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

/// Every row of the tables that the log book is made of, and all their columns as text.
size_t readBare(SqliteFile& tables) {
    size_t bytes = 0;
    for (const char* table : {"flight", "flight_plane", "flight_report", "flight_event"}) {
        SqliteStatement row(tables, std::string("SELECT * FROM ") + table);
        while (row.next())
            for (int column = 0; column < row.columnCount(); ++column)
                bytes += row.rawText(column).size();
    }
    return bytes;
}

/// The log book of a whole war with a flight in each period.
void logBooks(benchmark::State& state, bool isOurs) {
    RecordedCareer war(true);
    fightWar(war, UsualEvents);
    static_cast<void>(war.career().loadFile(SaveFileName));
    SqliteFile& tables = war.record.read(war.career());
    for (auto unused : state) {
        static_cast<void>(unused);
        if (isOurs)
            benchmark::DoNotOptimize(readLogBook(tables, war.career()).victories);
        else
            benchmark::DoNotOptimize(readBare(tables));
    }
    if (tables.failed())
        state.SkipWithError(tables.problem().c_str());
}

} // namespace

double recordSizeOfWar() {
    RecordedCareer war(true);
    fightWar(war, MostEvents);
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
        {"log book of a war/ours", logBooks, true},
        {"log book of a war/bare", logBooks, false},
    };
    for (const Bench& bench : benches)
        benchmark::RegisterBenchmark(bench.name, bench.run, bench.hasRecord)->Unit(kMillisecond);
    RatioReport::setLimit("war with its record", 1.25);
    RatioReport::setLimit("save with its record", 1.5);
    RatioReport::setLimit("log book of a war", 3);
}
