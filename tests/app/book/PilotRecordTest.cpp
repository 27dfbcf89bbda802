#include "app/book/PilotRecord.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "app/book/BookTables.h"
#include "app/book/LogBook.h"
#include "app/book/PilotRows.h"
#include "app/book/RecordedService.h"
#include "app/book/RowSearch.h"
#include "app/book/ServiceText.h"
#include "tests/app/book/HandMadeRecord.h"
#include "tests/app/record/RecordedProgram.h"

namespace {

// Checks for everybody that his page agrees with the save, wherever his rows are in the tables.
TEST(PilotRecordTest, AgreesWithTheSave) {
    const PinnedRun run(12);
    RecordedProgram program;
    program.begin();
    program.goOn();
    ASSERT_TRUE(program.save());
    program.goOn();
    const Database& career = program.career;
    SqliteFile& tables = program.record.read(career);
    int32_t dead = 0;
    for (int32_t i = 0; i < career.pilotCount(); i += 7) {
        const Pilot& saved = career.pilot(i);
        const PilotRecord page = readPilot(tables, career, BookTables::instance(), i);
        ASSERT_FALSE(tables.failed()) << tables.problem().c_str();
        ASSERT_EQ(page.unrecorded(), 0) << saved.name;
        ASSERT_FALSE(page.postings.empty()) << saved.name;
        const bool hasDied = page.postings.back().kind == PilotPosting::Died;
        ASSERT_EQ(hasDied, saved.alive == 0) << saved.name;
        EXPECT_EQ(page.postings.back().squadron, saved.squadron) << saved.name;
        EXPECT_LE(page.since, page.until);
        for (const PilotVictory& victory : page.victories)
            EXPECT_TRUE(page.since <= victory.date && victory.date <= page.until) << saved.name;
        dead += hasDied ? 1 : 0;
    }
    EXPECT_GT(dead, 10);
    const PilotRecord player =
        readPilot(tables, career, BookTables::instance(), career.playerPilot);
    EXPECT_EQ(player.postings.front().kind, PilotPosting::Came);
    EXPECT_GE(player.postings.size(), 3U) << "he moves at the end of each period";
    EXPECT_EQ(player.postings.back().squadron, career.player().squadron);
    EXPECT_EQ(readPilot(tables, career, BookTables::instance(), -1).pilot, -1);
}

TEST(PilotRecordTest, KnowsWhatIsShownAndWhoIsMeant) {
    const std::pair<const char*, Shape> shapes[] = {
        {"AeType", Shape::Balloon},       {"Parseval", Shape::Balloon},
        {"13pdrAAA", Shape::Ground},      {"Benz_open", Shape::Ground},
        {"albatrosd3", Shape::Scout},     {"DFW C.V", Shape::TwoSeater},
        {"Fokker Dr.I", Shape::Triplane}, {"fokkerd8", Shape::Monoplane}};
    for (const auto& [machine, shape] : shapes)
        EXPECT_EQ(shapeOf(machine), shape) << machine;
    HandMadeRecord record;
    Database& career = record.career;
    for (int32_t i = 0; i < 14; ++i)
        addPilot(career, 0, "Jos\351 Muller", {});
    addPilot(career, 0, "Jos\351 Muller-Jones", {});
    EXPECT_EQ(pilotsNamed(career, "jose muller").size(), 14U) << "of exactly that name";
    EXPECT_EQ(pilotsNamed(career, "muller").size(), 15U);
    EXPECT_EQ(severalPilots(career, pilotsNamed(career, "MULLER")).back(), "and 3 more");
    career.playerPilot = 5;
    EXPECT_EQ(pilotsNamed(career, "jose muller"), std::vector<int32_t>{5});
    EXPECT_TRUE(pilotsNamed(career, "nobody").empty());
}

// Whether gathered before a save, after it, or from a timeline that was given up.
TEST(PilotRowsTest, FindWhatASearchFinds) {
    const PinnedRun run(12);
    RecordedProgram program;
    program.begin();
    program.goOn();
    ASSERT_TRUE(program.save());
    const std::string save = run.userFolder() + "/Saves/savegame_v03.wty";
    const std::string kept = run.userFolder() + "/kept";
    std::filesystem::copy_file(save, kept);
    PilotRows rows;
    const auto compare = [&](const char* when) {
        SqliteFile& tables = program.record.read(program.career);
        size_t victories = 0;
        for (int32_t i = 0; i < program.career.pilotCount(); i += 11) {
            const PilotRecord found =
                readPilot(tables, program.career, BookTables::instance(), i, &rows);
            const PilotRecord searched =
                readPilot(tables, program.career, BookTables::instance(), i);
            ASSERT_EQ(pilotLines(found, program.career), pilotLines(searched, program.career))
                << when;
            victories += found.victories.size();
        }
        EXPECT_GT(victories, 20U) << when;
    };
    EXPECT_FALSE(rows.gather(program.record.read(program.career), 100));
    compare("half gathered");
    EXPECT_TRUE(rows.gather(program.record.read(program.career), 100));
    EXPECT_GT(rows.lastVictory(), 100);
    program.goOn();
    compare("not saved");
    ASSERT_TRUE(program.save());
    compare("saved");
    std::filesystem::remove(save); // MinGW overwrites no file
    std::filesystem::copy_file(kept, save);
    ASSERT_TRUE(program.load());
    compare("of the earlier save");
    program.goOn();
    program.goOn();
    ASSERT_TRUE(program.save());
    compare("of another course of the war");
}

TEST(RowSearchTest, FindsTheFirstRowOfADay) {
    SqliteFile file;
    ASSERT_TRUE(file.openInMemory());
    file.run("CREATE TABLE victory(id INTEGER PRIMARY KEY, date INTEGER)");
    EXPECT_EQ(firstRowFrom(file, DatedTable::Victory, 19160101), 1);
    // Keys are missing where a record was cut.
    file.run(
        "INSERT INTO victory VALUES(2, 19160103), (3, 19160103), (9, 19160105), (10, 19160109)");
    const std::pair<int32_t, int64_t> cases[] = {
        {19160101, 2}, {19160103, 2}, {19160104, 9}, {19160106, 10}, {19160110, 11}};
    for (const auto& [date, id] : cases) {
        const int64_t found = firstRowFrom(file, DatedTable::Victory, date);
        EXPECT_EQ(file.number(("SELECT coalesce((SELECT id FROM victory WHERE id >= " +
                               std::to_string(found) + " ORDER BY id LIMIT 1), 11)")
                                  .c_str()),
                  id)
            << date;
    }
}

struct PlayersRecordTest : testing::Test {
    PlayersRecordTest() {
        for (int32_t day = 1; day <= 9; ++day) {
            FlownMission& flight = record.addFlight(
                19170900 + 3 * day, {{0, 0, "Erich Sommer", "albatrosd5", Germany, 1},
                                     {-1, -1, "Henry Coe", "soptriplane", England, 2},
                                     {-1, -1, "Alan Fry", "se5a", England, 2}});
            HandMadeRecord::credit(flight, 0, 1);
            if (day < 9)
                continue;
            HandMadeRecord::credit(flight, 2, 0);
            flight.reports[0].dead = 1;
        }
        for (int32_t flight = 0; flight < 9; ++flight)
            record.events.victories.push_back({19170900 + 3 * (flight + 1),
                                               {0, -1, "Henry Coe", "albatrosd5",
                                                flight < 6 ? "soptriplane" : "se5a", true, true},
                                               0,
                                               -1,
                                               flight});
        record.career.pilots[0].missions = 30; // most of them before the player took him up
        record.career.pilots[0].shotdowns = 9;
    }
    HandMadeRecord record;
};

TEST_F(PlayersRecordTest, HoldsHisServiceUpToHisDeath) {
    record.career.pilots[0].alive = 0;
    const PilotRecord pilot = readPilot(record.tables(), record.career, BookTables::instance(), 0);
    EXPECT_EQ(pilot.since, 19170903);
    EXPECT_EQ(pilot.until, 19170927);
    ASSERT_EQ(pilot.postings.size(), 2U);
    EXPECT_STREQ(pilot.postings[1].other.c_str(), "Alan Fry");
    const std::vector<MachineCount> machines = machinesOf(pilot);
    ASSERT_EQ(machines.size(), 2U);
    EXPECT_STREQ(machines[0].aircraft.c_str(), "soptriplane");
    EXPECT_EQ(machines[0].count, 6);
    EXPECT_EQ(shapeOf(machines[0].aircraft), Shape::Triplane);
    std::string awards;
    for (const AwardGiven& one : pilot.honours.awards)
        awards += std::to_string(one.date) + " " + one.award->key + ";";
    // The tenth flight would have brought the first class.
    EXPECT_EQ(awards, "19170904 cup;19170904 iron2;");
    EXPECT_EQ(flyingText(pilot), "Flying since 3 September 1917: 9 flights");
}

// What was won before the record began counts from its beginning on.
TEST_F(PlayersRecordTest, CountsWhatTheRecordLacks) {
    record.career.pilots[0].shotdowns = 21;
    record.events.gaps.push_back({19151201, 19170903});
    const PilotRecord pilot = readPilot(record.tables(), record.career, BookTables::instance(), 0);
    EXPECT_EQ(pilot.unrecorded(), 12);
    EXPECT_TRUE(pilot.honours.has("merite"));
    const std::vector<zel::String> lines = serviceLines(pilot, record.career);
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [](const zel::String& line) {
        return line == "Victories: 21, 12 of them not in the record";
    }));
    EXPECT_EQ(flyingText(pilot), "30 flights") << "since when isn't known";
}

// The same for a save that the record is ahead of.
TEST_F(PlayersRecordTest, CountsUpToTheGapBeforeASave) {
    record.events.gaps = {{19151201, 19170904}, {19170919, 19170920}};
    record.career.playerPilot = 1;
    record.events.postings.push_back(
        {19170928, {PostingKind::Succeeded, PostingCause::Replacement, 1, -1, 0, {}}, 0});
    SqliteFile& tables = record.tables();
    struct Case {
        int32_t pilot, date;
        size_t flights;
        int32_t gap; // whose last day has the rest
    };
    for (const Case& one : {Case{0, 19170903, 1, 0},
                            {0, 19170910, 3, 19170904},
                            {0, 19170930, 9, 19170920},
                            {1, 19170930, 0, 0}}) {
        SavedPilot saved;
        saved.pilot = one.pilot;
        saved.date = one.date;
        saved.missions = 30;
        saved.isShelved = true;
        PilotService service = readService(tables, saved);
        EXPECT_EQ(service.flights.size(), one.flights) << one.date;
        addUnrecorded(tables, saved, service);
        const auto added = std::count(service.flights.begin(), service.flights.end(), one.gap);
        EXPECT_EQ(size_t(added), one.gap != 0 ? 30 - one.flights : 0) << one.date;
        EXPECT_EQ(service.flights.size(), one.flights + size_t(added)) << one.date;
    }
}

} // namespace
