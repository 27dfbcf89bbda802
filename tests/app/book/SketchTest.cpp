#include "app/book/Sketch.h"

#include <array>
#include <cmath>

#include <gtest/gtest.h>

#include "app/book/SketchPicture.h"
#include "app/report/CombatReport.h"
#include "app/report/FlightAccount.h"
#include "tests/app/book/HandMadeRecord.h"
#include "tests/app/report/FlightLog.h"
#include "tests/support/Printers.h"

namespace {

FlightEvent at(FlightEventKind kind, float seconds, int32_t actor, int32_t target, float x,
               float z) {
    FlightEvent event;
    event.kind = kind;
    event.seconds = seconds;
    event.actor = actor;
    event.target = target;
    event.hasPosition = true;
    event.x = x;
    event.y = 1000;
    event.z = z;
    return event;
}

/// A flight over Arras of Sommer, the player, with Brandt against Reed.
RecordedFlight flightOf(const std::vector<FlightEvent>& events) {
    RecordedFlight flight;
    flight.date = 19170607;
    flight.base = "Douai";
    const std::pair<const char*, int32_t> planes[] = {
        {"Erich Sommer", Germany}, {"Kurt Brandt", Germany}, {"Albert Reed", England}};
    for (const auto& [name, nation] : planes) {
        PilotReport& report = flight.mission.reports.emplace_back();
        report.name = name;
        report.country = nation;
    }
    flight.mission.reports[0].human = 1;
    flight.mission.events = events;
    return flight;
}

std::string text(const Sketch& sketch) {
    std::string lines;
    for (const zel::String& line : sketchLines(sketch))
        lines += std::string(line.view()) + "\n";
    return lines;
}

// The made-up flight of the report's tests, whose log it is read from. A square is a kilometre.
TEST(Sketch, DrawsWhatTheLogSays) {
    MissionGenerator generator;
    generator.plan = flightPlan();
    CombatReport report;
    for (const std::string& piece : FlightPieces)
        report.lines.add(piece);
    static_cast<void>(report.analyse());
    RecordedFlight flight;
    flight.date = 19161014;
    flight.mission = accountOf(report, generator, "log[0].txt");
    const Sketch sketch = sketchOf(flight, nullptr);
    EXPECT_EQ(text(sketch), "1. 0:01  In the air near Arras\n"
                            "2. 0:49  You hit Albert Reed once\n"
                            "3. 0:57  You bring down Albert Reed\n"
                            "4. 1:02  Ernest M. Hall brings down Kurt Brandt\n"
                            "5. 1:06  Ernest M. Hall damages your plane\n"
                            "6. 3:00  You land near Arras\n");
    EXPECT_EQ(sketch.way.size(), 3U) << "begin, wound, landing";
    for (const SketchMark& mark : sketch.marks)
        EXPECT_TRUE(sketch.frame.holds(mark.place)) << mark.number;
}

TEST(Sketch, KeepsOutWhatHasNoPlace) {
    const Sketch nothing = sketchOf(flightOf({}), nullptr);
    EXPECT_EQ(text(nothing), "Left in the air\n");
    EXPECT_TRUE(nothing.marks.empty() && nothing.way.empty());
    FlightEvent hit = at(FlightEventKind::Hit, 5, 0, 2, 0, 0);
    hit.hasPosition = false;
    const FlightEvent nowhere = at(FlightEventKind::Kill, 6, 0, 2, 1e30F, 0);
    const Sketch without = sketchOf(flightOf({hit, nowhere}), nullptr);
    EXPECT_EQ(text(without), "Left in the air\n");
    EXPECT_TRUE(without.marks.empty());
    EXPECT_TRUE(sketchOf(RecordedFlight(), nullptr).lines.empty());
}

// Bursts, collisions, own side, a fall; and the pilot who falls hasn't left in the air. What
// happens to a wreck isn't shown, but a survivor who comes down well after his loss has landed.
TEST(Sketch, NamesWhoAndWhen) {
    RecordedFlight flight = flightOf({at(FlightEventKind::Damage, 10, 2, 0, 210000, 60000),
                                      at(FlightEventKind::Damage, 29, 2, 0, 210000, 60000),
                                      at(FlightEventKind::Damage, 60, 2, 0, 210000, 60000),
                                      at(FlightEventKind::Damage, 70, -1, 2, 210000, 60000),
                                      at(FlightEventKind::Kill, 80, 0, 1, 210000, 60000),
                                      at(FlightEventKind::Landing, 80, 1, -1, 210000, 60000),
                                      at(FlightEventKind::Death, 81, -1, 0, 210000, 60000),
                                      at(FlightEventKind::Crash, 82, -1, 0, 210000, 60000),
                                      at(FlightEventKind::Damage, 98, 2, 0, 210000, 60000),
                                      at(FlightEventKind::Damage, 99, -1, 0, 210000, 60000),
                                      at(FlightEventKind::Landing, 99, 0, -1, 210000, 60000),
                                      at(FlightEventKind::Landing, 200, 1, -1, 210000, 60000)});
    flight.mission.reports[0].dead = 1;
    flight.mission.reports[1].shotDown = 1;
    flight.mission.reports[1].shotdownByOwn = 0;
    flight.mission.reports[0].shotDown = 1;
    EXPECT_EQ(text(sketchOf(flight, nullptr)),
              "1. 0:10  In the air near Arras\n2. 0:10  Albert Reed damages your plane\n"
              "3. 1:00  Albert Reed damages your plane\n4. 1:10  Albert Reed is damaged\n"
              "5. 1:20  Kurt Brandt, of your own side, falls to you\n6. 1:21  You crash\n"
              "7. 3:20  Kurt Brandt lands near Arras\n");
    flight.mission.reports[0].shotdownBy = 2;
    EXPECT_NE(text(sketchOf(flight, nullptr)).find("Albert Reed brings you down"),
              std::string::npos);
}

TEST(Sketch, ChoosesTheScaleThatHoldsAll) {
    const struct {
        float width, height; // metres
        int32_t kilometres;
    } cases[] = {{0, 0, 1},     {28000, 0, 1},   {28001, 0, 2},   {0, 20800, 1},   {0, 20900, 2},
                 {56001, 0, 5}, {140001, 0, 10}, {0, 399999, 20}, {900000, 0, 50}, {0, 900000, 50}};
    for (const auto& [width, height, kilometres] : cases) {
        const Sketch sketch =
            sketchOf(flightOf({at(FlightEventKind::Position, 0, 0, -1, 0, 0),
                               at(FlightEventKind::Position, 1, 0, -1, height, width)}),
                     nullptr);
        EXPECT_EQ(sketch.frame.kilometres, kilometres) << width << " x " << height;
        EXPECT_TRUE(sketch.frame.holds({height, width}) && sketch.frame.holds({0, 0}));
    }
    const MapPoint base{0, 40000};
    EXPECT_EQ(
        sketchOf(flightOf({at(FlightEventKind::Position, 0, 0, -1, 0, 0)}), &base).frame.kilometres,
        2)
        << "the base is in it";
}

TEST(Sketch, SharesTheNumberOfACrowdedSquare) {
    std::vector<FlightEvent> events;
    for (int32_t i = 0; i < 9; ++i)
        events.push_back(at(FlightEventKind::Landing, 10.0F + static_cast<float>(i), 1, -1, 0, 0));
    EXPECT_EQ(sketchOf(flightOf(events), nullptr).lines[8].number, 9);
    events.push_back(at(FlightEventKind::Landing, 30, 1, -1, 0, 0));
    events.push_back(at(FlightEventKind::Landing, 40, 1, -1, 9000, 0));
    const Sketch sketch = sketchOf(flightOf(events), nullptr);
    EXPECT_EQ(sketch.lines[0].number, 1);
    EXPECT_EQ(sketch.lines[9].number, 1);
    EXPECT_EQ(sketch.lines[10].number, 2);
}

TEST(Sketch, TakesTheBaseOfItsDayFromTheRecord) {
    HandMadeRecord record;
    record.events.bases = {{19170301, 0, "Douai", false, 1, 2},
                           {19170501, 0, "Lille", false, 3, 4},
                           {19170601, 0, "Douai", true, 5, 6}};
    RecordedFlight flight = flightOf({});
    MapPoint base;
    ASSERT_TRUE(baseOf(record.tables(), flight, base));
    EXPECT_EQ(base.z, 2);
    flight.onChannelMap = true;
    EXPECT_TRUE(baseOf(record.file, flight, base));
    flight.date = 19170531;
    EXPECT_FALSE(baseOf(record.file, flight, base));
}

// Towns and front are where the airfields of the simulator's maps are, within some kilometres, and
// the front stays between the two sides' towns.
TEST(Sketch, HasItsFrontInPiecesOnThePage) {
    // Pixels of the picture, and the lines that are drawn: red three to the left of it, then blue.
    struct Case {
        std::vector<std::array<float, 2>> front;
        std::vector<const char*> lines;
    };
    for (const Case& one : std::vector<Case>{
             {{{-50, 119}, {400, 119}}, {"1.0,116.0 311.0,116.0", "1.0,122.0 311.0,122.0"}},
             {{{-104, 204}, {204, -104}}, {"1.0,94.8 94.8,1.0", "1.0,103.2 103.2,1.0"}},
             {{{-104, 50}, {50, -104}}, {}},
             {{{100, -9}, {100, 50}, {400, 50}, {400, 90}, {100, 90}},
              {"103.0,1.0 103.0,50.0 100.0,47.0 311.0,47.0", "311.0,93.0 100.0,93.0",
               "97.0,1.0 97.0,50.0 100.0,53.0 311.0,53.0", "311.0,87.0 100.0,87.0"}}}) {
        Sketch sketch;
        const float scale = sketch.frame.width() / 312; // metres per pixel
        for (const auto& [x, y] : one.front)
            sketch.front.push_back({(238 - y) * scale, x * scale});
        const std::string page = sketchPicture(sketch, "", "");
        size_t at = 0;
        for (const char* line : one.lines) {
            at = page.find("<polyline points=\"", at) + 18;
            EXPECT_EQ(page.substr(at, page.find('"', at) - at), line);
        }
        EXPECT_EQ(page.find("<polyline", at), std::string::npos);
    }
}

TEST(Theatre, FitsTheSimulatorsMaps) {
    const struct {
        const char* name;
        bool onChannelMap;
        MapPoint airfield;
    } cases[] = {{"Arras", false, {213679, 59607}}, {"Metz", false, {85856, 306785}},
                 {"Lille", false, {253891, 78627}}, {"Toul", false, {33006, 288296}},
                 {"Ypres", true, {60611, 206678}},  {"Dunkerque", true, {78614, 173932}}};
    for (const auto& [name, onChannelMap, airfield] : cases)
        EXPECT_STREQ(townNear(airfield, onChannelMap, 9000), name);
    for (const int32_t date :
         {19151201, 19160715, 19170101, 19170901, 19180601, 19180920, 19181111})
        for (const bool onChannelMap : {false, true}) {
            const std::vector<MapPoint> front = frontOf(date, onChannelMap);
            ASSERT_GT(front.size(), 4U);
            for (size_t i = 1; i < front.size(); ++i)
                EXPECT_LT(std::hypot(front[i].x - front[i - 1].x, front[i].z - front[i - 1].z),
                          45000)
                    << date << ' ' << i;
        }
}

} // namespace
