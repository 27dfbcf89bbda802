#include <functional>

#include <gtest/gtest.h>

#include "app/book/BookTables.h"
#include "app/book/LogBookText.h"
#include "app/career/Aircraft.h"
#include "engine/core/Language.h"
#include "tests/app/book/HandMadeRecord.h"
#include "tests/support/Printers.h"

namespace {

FlightPlane plane(int32_t pilot, const char* name, int32_t nation, const char* aircraft) {
    return {pilot, 0, name, aircraft, nation, 1};
}

const FlightPlane Sommer = plane(0, "Erich Sommer", Germany, "albatrosd3");
const FlightPlane Heydt = plane(1, "Otto von der Heydt", Germany, "albatrosd5");
const FlightPlane Brandt = plane(20, "Kurt F. Brandt", Germany, "albatrosd3");
const FlightPlane Reed = plane(30, "Albert Reed", England, "sopcamel");
const FlightPlane Hall = plane(31, "Ernest Hall", England, "se5a");
const FlightPlane Young = plane(32, "Carl Young", Usa, "se5a");

std::string row(const BookFlight& flight) {
    const LogBookRow row = logBookRow(flight);
    std::string text;
    for (const zel::String* part : {&row.number, &row.date, &row.near, &row.machine, &row.with,
                                    &row.against, &row.result, &row.total})
        text += std::string(text.empty() ? "" : "|") + std::string(part->view());
    return text;
}

struct LogBookTest : testing::Test {
    LogBookTest() { initPlaneNames(); }
    HandMadeRecord record;
};

// The opponents are those named by an event or a loss, the victims those that the player is
// credited with. A successor's victories start at none, and those that only the save has come
// before the record's.
TEST_F(LogBookTest, HasARowForEachFlight) {
    record.career.pilots[0].shotdowns = 5; // two of them in no flight of the record
    record.career.pilots[1].shotdowns = 1;
    record.career.pilots[0].alive = 0;
    record.career.playerPilot = 1;
    record.addFlight(19170409, {Sommer});
    FlownMission& second = record.addFlight(19170601, {Sommer, Brandt, Heydt, Reed, Hall, Young});
    record.credit(second, 0, 4);
    record.credit(second, 0, 5);
    record.credit(second, 1, 3);
    for (const int32_t met : {4, 5, 3})
        record.addEvent(second, FlightEventKind::Kill, 60, 0, met);
    second.reports[0].damage = 0.02F;
    FlownMission& third = record.addFlight(19170921, {Sommer, Heydt, Reed, Hall});
    record.credit(third, 0, 2);
    record.addEvent(third, FlightEventKind::Hit, 60, 2, 0);
    third.reports[0].dead = 1;
    FlownMission& fourth = record.addFlight(19170925, {Heydt, Hall});
    record.credit(fourth, 0, 1);
    fourth.reports[0].flightStatus = 1;
    const LogBook book = readLogBook(record.tables(), record.career, BookTables::instance());
    ASSERT_EQ(book.flights.size(), 4U) << record.file.problem().c_str();
    EXPECT_EQ(row(book.flights[0]),
              "  1|9 Apr 17|Douai|Albatros D.III|alone|nobody met|Left in the air|   2");
    EXPECT_EQ(row(book.flights[1]),
              "  2|1 June 17|Douai|Albatros D.III|Brandt +1|2 SE5a|Two down, damaged|   4");
    EXPECT_EQ(row(book.flights[2]), "  3|21 Sept 17|Douai|Albatros D.III|von der Heydt|1 Sopwith "
                                    "Camel|One down, fell|   5");
    EXPECT_EQ(row(book.flights[3]),
              "  4|25 Sept 17|Douai|Albatros D.Va|alone|1 SE5a|One down|   1");
    EXPECT_EQ(fallText(book.flights[2]) + " " + successionText(book, 2),
              "Leutnant Erich Sommer fell on 21 September 1917. In his place: Leutnant Otto von "
              "der Heydt.");
    EXPECT_EQ(flightsText(book), "4 flights, 6 months");
    EXPECT_EQ(victoriesText(book, 45), "4 victories: 3 SE5a, 1 Sopwith");
    EXPECT_EQ(victoriesText(book, 29), "4 victories: 3 SE5a, 1 more");
    EXPECT_EQ(victoriesText(book, 12), "4 victories");
    EXPECT_EQ(logBookLines(book).size(), 1U + 4 + 1 + 2);
}

TEST_F(LogBookTest, IsEmptyWithoutFlightsOrWithoutARecord) {
    const std::vector<zel::String> lines =
        logBookLines(readLogBook(record.tables(), record.career, BookTables::instance()));
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[1], "No flight yet");
    EXPECT_EQ(lines[2], "0 flights");
    SqliteFile nothing;
    EXPECT_TRUE(readLogBook(nothing, record.career, BookTables::instance()).flights.empty());
    EXPECT_TRUE(record.file.run("DROP TABLE flight_report"));
    const LogBook unreadable = readLogBook(record.file, record.career, BookTables::instance());
    EXPECT_TRUE(unreadable.flights.empty() && record.file.failed());
    EXPECT_STREQ(emptyBookText(unreadable).c_str(), "The record of the war can't be read.");
}

// What a man's flight came to, the worst first.
TEST_F(LogBookTest, SumsAFlightUp) {
    const struct {
        const char* text;
        std::function<void(BookFlight&)> change;
    } cases[] = {
        {"Not in the log", [](BookFlight& f) { f.isNamed = false; }},
        {"Fell", [](BookFlight& f) { f.isDead = f.isLost = f.isShotDown = true; }},
        {"Shot down", [](BookFlight& f) { f.isLost = f.isShotDown = true, f.injury = 60; }},
        {"Crashed", [](BookFlight& f) { f.isLost = true; }},
        {"Severely injured", [](BookFlight& f) { f.injury = 51, f.damage = 1; }},
        {"Injured", [](BookFlight& f) { f.injury = 26; }},
        {"Slightly injured", [](BookFlight& f) { f.injury = 25; }},
        {"Destroyed, landed", [](BookFlight& f) { f.damage = 0.5F; }},
        {"Damaged, landed", [](BookFlight& f) { f.damage = 0.01F; }},
        {"Damaged", [](BookFlight& f) { f.damage = 0.3F, f.hasLanded = false; }},
        {"Landed", [](BookFlight& f) { f.damage = 0.009F; }},
        {"Three down, damaged", [](BookFlight& f) { f.victories = 3, f.damage = 0.5F; }},
        {"Three down", [](BookFlight& f) { f.victories = 3, f.isLost = f.isShotDown = true; }},
        {"12 down, injured", [](BookFlight& f) { f.victories = 12, f.injury = 1; }},
        {"One down", [](BookFlight& f) { f.victories = 1, f.isLost = true; }},
    };
    for (const auto& [text, change] : cases) {
        BookFlight flight;
        flight.isNamed = flight.hasLanded = true;
        change(flight);
        EXPECT_EQ(resultText(flight), text);
    }
}

TEST_F(LogBookTest, CutsNamesToTheirColumns) {
    for (const auto& [name, last] : {std::pair{"Manfred von Richthofen", "von Richthofen"},
                                     {"Frederick W. A. Powell", "Powell"},
                                     {"Wentworth", "Wentworth"},
                                     {"", ""}})
        EXPECT_EQ(lastName(name), last);
    BookFlight flight;
    flight.companions.assign(12, "Bernard Cholmondeley-Warde-Smith");
    flight.opponents = {{"albatrosd2late", 12}};
    const LogBookRow cut = logBookRow(flight);
    EXPECT_EQ(cut.with, "Cholmond... +11");
    EXPECT_EQ(cut.against, "12 Albatros D.II");
    EXPECT_EQ(machineText("halberstadtd2", 14), "Halberstadt");
    EXPECT_EQ(machineText("soptriplane", 14), "Triplane");
    EXPECT_EQ(machineText("Handley-Page-O/400", 14), "Handley-Pag...");
}

// The screen sets rows in columns.
TEST_F(LogBookTest, FitsItsColumnsInEveryLanguage) {
    for (const char* code : {"en", "de", "fr", "es", "it", "pl"}) {
        ASSERT_TRUE(zel::Language::load(code));
        for (int32_t victories = 0; victories < 14; ++victories)
            for (int32_t fate = 0; fate < 128; ++fate) {
                BookFlight flight;
                flight.isNamed = fate != 0;
                flight.victories = victories;
                flight.isDead = (fate & 1) != 0;
                flight.isLost = (fate & 2) != 0;
                flight.isShotDown = (fate & 4) != 0;
                flight.injury = (fate & 24) * 4;
                flight.damage = (fate & 32) != 0 ? 0.6F : (fate & 64) != 0 ? 0.2F : 0;
                flight.hasLanded = fate % 3 == 0;
                EXPECT_LE(resultText(flight).length(), int32_t(ResultLetters))
                    << code << ": " << resultText(flight).c_str();
            }
        EXPECT_LE(logBookRow({}).against.length(), int32_t(AgainstLetters)) << code;
        EXPECT_LE(logBookRow({}).with.length(), int32_t(WithLetters)) << code;
        for (int32_t month = 1; month <= 12; ++month) {
            BookFlight flight;
            flight.date = 19170028 + month * 100;
            EXPECT_LE(logBookRow(flight).date.length(), int32_t(DateLetters)) << code;
        }
    }
    zel::Language::reset();
}

} // namespace
