// What the record of the war costs: a war and a save with it against the same without it. And how
// long the pages of the book take that are read from it.

#include <filesystem>
#include <memory>
#include <vector>

#include <benchmark/benchmark.h>

#include "app/book/BookTables.h"
#include "app/book/Diary.h"
#include "app/book/LogBook.h"
#include "app/book/PilotRecord.h"
#include "app/book/RowSearch.h"
#include "app/book/WebPage.h"
#include "app/career/CareerEvents.h"
#include "app/career/CareerTexts.h"
#include "app/record/CareerRecord.h"
#include "app/record/Sqlite.h"
#include "app/report/FlightAccount.h"
#include "app/war/WarAdvance.h"
#include "bench/Benches.h"
#include "bench/PinnedCareer.h"
#include "bench/RatioReport.h"
#include "bench/WorkFolder.h"
#include "engine/core/UserDirectory.h"

namespace fs = std::filesystem;

namespace {

constexpr size_t UsualEvents = 200; // of a flight
constexpr int32_t FlightsOfWebPage = 83;
constexpr int64_t RowsOfFrame = 2000; // that a list of pilots reads

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

/// A flight of eight planes with that many events.
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

/// Fights a war with a flight and a save in each period, as players do, up to that many flights.
/// Each of them brings the player a victory.
void fightWar(RecordedCareer& war, size_t eventsOfFlight, int32_t mostFlights = 1000) {
    Database& career = war.career();
    FlownMission flight = flightWith(eventsOfFlight);
    Victory victory;
    victory.victimName = "August Hanko";
    victory.victorAircraft = "sopwith camel";
    victory.victimAircraft = "albatrosd3";
    victory.isSeen = true;
    while (career.calendar().dateNumber() < 19181111) {
        flight.plan[0].pilot = flight.reports[0].pilot = victory.victor = career.playerPilot;
        if (career.observer != nullptr && mostFlights > 0) {
            career.observer->onFlight(career, flight);
            career.observer->onVictory(career, victory);
        }
        career.player().shotdowns += mostFlights > 0 ? 1 : 0;
        --mostFlights;
        advanceWar(career, war.generator());
        career.storeFile(SaveFileName);
    }
    static_cast<void>(war.record.close());
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
            static_cast<void>(war.record.close());
        state.ResumeTiming();
    }
}

/// A whole war to be read, the same for all pages.
struct ReadWar {
    explicit ReadWar(int32_t mostFlights = 1000) {
        fightWar(war, UsualEvents, mostFlights);
        static_cast<void>(war.career().loadFile(SaveFileName));
        tables = &war.record.read(war.career());
        war.pinned->generator.reset(); // other careers draw by their own
        ace = bestPilots(career().pilots, 2)[0];
        if (ace == career().playerPilot)
            ace = bestPilots(career().pilots, 2)[1];
        lastFlight = int32_t(tables->number("SELECT max(number) FROM flight"));
    }
    const Database& career() const { return war.career(); }

    RecordedCareer war{true};
    const BookTables& book = BookTables::instance();
    SqliteFile* tables = nullptr;
    int32_t ace = -1; // the best but the player
    int32_t lastFlight = 0;
};

const ReadWar& readWar() {
    static const ReadWar war;
    return war;
}

using Selections = std::vector<std::string>; // the columns and rows that a page shows

/// Those values, each in the form that it has in the file.
size_t readBare(SqliteFile& tables, const Selections& selections) {
    const ReadLock lock(tables);
    size_t sum = 0;
    for (const std::string& selection : selections) {
        SqliteStatement row(tables, "SELECT " + selection);
        std::vector<bool> texts; // by column
        while (row.next()) {
            for (int column = 0; texts.size() < size_t(row.columnCount()); ++column)
                texts.push_back(row.isText(column));
            for (int column = 0; column < int(texts.size()); ++column)
                sum += texts[column] ? row.rawText(column).size() : size_t(row.number(column));
        }
    }
    return sum;
}

/// Reads those rows by their keys, so that nothing has to be searched.
std::string byKeys(SqliteFile& tables, const std::string& table, const std::string& condition) {
    SqliteStatement keys(tables, "SELECT id FROM " + table + " WHERE " + condition);
    std::string list;
    while (keys.next())
        list += (list.empty() ? "" : ",") + std::to_string(keys.number(0));
    return " FROM " + table + " WHERE id IN (" + list + ")";
}

/// The rows after that day, which are the last of their table.
std::string after(SqliteFile& tables, DatedTable table, int32_t date) {
    return std::string(table == DatedTable::Victory ? " FROM victory" : " FROM posting") +
           " WHERE id >= " + std::to_string(firstRowFrom(tables, table, date + 1));
}

Selections valuesOfLogBook(const ReadWar& /*war*/) {
    return {"number, date, pilot, pilot_name, squadron, base, aircraft, kills, injury, damage,"
            " landed, dead FROM flight",
            "flight, pilot, name, nation, aircraft FROM flight_plane",
            "flight, pilot, type, nation, shot_down, shot_down_by, shot_down_by_own,"
            " damage > 0 OR injury > 0 OR kills > 0 FROM flight_report"};
}

constexpr const char* VictoryColumns = "date, victim_name, victim_aircraft, died";
constexpr const char* PostingColumns = "date, kind, squadron, from_squadron, other_name";

Selections valuesOfService(const ReadWar& war) {
    const std::string own = std::to_string(war.career().playerPilot);
    return {"date, squadron FROM flight WHERE pilot = " + own,
            VictoryColumns +
                byKeys(*war.tables, "victory", "flight IS NOT NULL AND victor = " + own),
            PostingColumns + byKeys(*war.tables, "posting", "pilot = " + own)};
}

/// He has no flights, since he isn't one of the player's pilots.
Selections valuesOfPilot(const ReadWar& war) {
    const std::string ace = std::to_string(war.ace);
    return {VictoryColumns + byKeys(*war.tables, "victory", "victor = " + ace),
            PostingColumns + byKeys(*war.tables, "posting", "pilot = " + ace)};
}

/// The diary also shows what the player was given, and the strip of the war all flights.
Selections valuesOfDiary(const ReadWar& war) {
    Selections all = valuesOfService(war);
    all.emplace_back("date FROM flight");
    const std::string flight = std::to_string(war.lastFlight);
    const std::string date = "SELECT date FROM flight WHERE number = " + flight;
    const auto day = int32_t(war.tables->number(date.c_str()));
    const std::string victory =
        "victor, victor_squadron, victim, victim_name, victim_squadron, died";
    all.push_back(victory + byKeys(*war.tables, "victory", "flight = " + flight));
    all.push_back(victory + after(*war.tables, DatedTable::Victory, day));
    all.push_back("kind, pilot, name, squadron, from_squadron, other_name" +
                  after(*war.tables, DatedTable::Posting, day));
    all.push_back("pilot, name, type, shot_down_by, dead FROM flight_report WHERE flight = " +
                  flight);
    all.push_back("pilot, squadron FROM flight_plane WHERE flight = " + flight);
    return all;
}

/// A page of the book: what reads it, and the values that it shows.
struct BookPage {
    const char* name;
    void (*read)(const ReadWar& war);
    Selections (*values)(const ReadWar& war);
    double mostRatio;
    double mostSeconds;
};
constexpr BookPage BookPages[] = {
    {"log book of a war",
     [](const ReadWar& war) {
         benchmark::DoNotOptimize(readLogBook(*war.tables, war.career(), war.book).victories);
     },
     valuesOfLogBook, 2.5, 0.0012},
    {"diary at the end of a war",
     [](const ReadWar& war) {
         benchmark::DoNotOptimize(readDiary(*war.tables, war.career(), war.book).until);
     },
     valuesOfDiary, 5, 0.005},
    {"record of service of a war",
     [](const ReadWar& war) {
         benchmark::DoNotOptimize(
             readPilot(*war.tables, war.career(), war.book, war.career().playerPilot).until);
     },
     valuesOfService, 7, 0.0004},
    {"page of the best ace of a war",
     [](const ReadWar& war) {
         static PilotRows rows; // of the first time, and of all after it
         benchmark::DoNotOptimize(
             readPilot(*war.tables, war.career(), war.book, war.ace, &rows).until);
     },
     valuesOfPilot, 7, 0.0003},
};

void pages(benchmark::State& state, const BookPage& page, bool isOurs) {
    const ReadWar& war = readWar();
    const Selections values = page.values(war);
    page.read(war); // the tables of the history are read once
    for (auto unused : state) {
        static_cast<void>(unused);
        if (isOurs)
            page.read(war);
        else
            benchmark::DoNotOptimize(readBare(*war.tables, values));
    }
    if (war.tables->failed())
        state.SkipWithError(war.tables->problem().c_str());
}

/// What a list of pilots reads in a frame, before one is pressed.
void rowsOfFrame(benchmark::State& state) {
    const ReadWar& war = readWar();
    auto rows = std::make_unique<PilotRows>();
    for (auto unused : state) {
        static_cast<void>(unused);
        if (rows->gather(*war.tables, RowsOfFrame))
            rows = std::make_unique<PilotRows>();
    }
}

void webPages(benchmark::State& state) {
    static const ReadWar war(FlightsOfWebPage);
    for (auto unused : state) {
        static_cast<void>(unused);
        const WebPage page = webPageOf(*war.tables, war.career(), war.book);
        if (page.html.empty())
            state.SkipWithError(page.problem.c_str());
    }
}

} // namespace

double recordSizeOfWar() {
    RecordedCareer war(true);
    fightWar(war, MostFlightEvents);
    return war.recordSize();
}

void registerRecordBenches() {
    using benchmark::kMillisecond;
    for (const bool hasRecord : {true, false}) {
        const std::string ending = hasRecord ? "/ours" : "/bare";
        for (const auto& [name, run] : {std::pair("war with its record", fightWars),
                                        std::pair("save with its record", saves)})
            benchmark::RegisterBenchmark((name + ending).c_str(), run, hasRecord)
                ->Unit(kMillisecond);
    }
    RatioReport::setLimit("war with its record", 1.25);
    RatioReport::setLimit("save with its record", 1.5);
    for (const BookPage& page : BookPages) {
        for (const bool isOurs : {true, false})
            benchmark::RegisterBenchmark(
                (std::string(page.name) + (isOurs ? "/ours" : "/bare")).c_str(),
                [&page, isOurs](benchmark::State& state) { pages(state, page, isOurs); })
                ->Unit(kMillisecond);
        RatioReport::setLimit(page.name, page.mostRatio);
        RatioReport::setTimeLimit(page.name, page.mostSeconds);
    }
    benchmark::RegisterBenchmark("rows of pilots in a frame/ours", rowsOfFrame)->Unit(kMillisecond);
    RatioReport::setTimeLimit("rows of pilots in a frame", 0.7e-3);
    benchmark::RegisterBenchmark("web page of 83 flights/ours", webPages)->Unit(kMillisecond);
    RatioReport::setTimeLimit("web page of 83 flights", 0.008);
}
