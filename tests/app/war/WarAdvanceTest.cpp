#include <gtest/gtest.h>

#include "app/mission/MissionGenerator.h"
#include "app/war/SquadronSimulator.h"
#include "tests/support/Draws.h"
#include "tests/support/HandMade.h"
#include "tests/support/LogCapture.h"
#include "tests/support/SmallCareer.h"

namespace {

/// Six full squadrons, two of each nation of a new war.
struct SmallWar {
    SmallWar() {
        for (int32_t i = 0; i < 6; ++i)
            career.addSquadron(i % 3 == 0 ? France : i % 3 == 1 ? England : Germany);
    }
    SmallWorld world;
    LogCapture lines;
    Database career;
};

/// Counts the unseen missions.
class Counter : public WarObserver {
public:
    Counter() { setWarObserver(this); }
    ~Counter() override { setWarObserver(nullptr); }
    void onWarProgress(const Calendar& date, float share) override {
        ++missions;
        lastDate = date.dateNumber();
        EXPECT_TRUE(share >= lastShare || lastShare == 1) << lastShare << " then " << share;
        lastShare = share;
    }
    int32_t missions = 0;
    int32_t lastDate = 0;
    float lastShare = 0;
};

/// The days of a period that begins in that year: the upper bound, the lower, the days between.
int32_t drawDays(int32_t year, zel::Random& draws) {
    const struct {
        int32_t year, from, to, least;
    } bounds[] = {{1915, 16, 28, 16}, {1916, 16, 24, 16}, {1917, 16, 22, 14}, {1918, 14, 18, 12}};
    for (const auto& [of, from, to, least] : bounds) {
        if (of != year)
            continue;
        const int32_t upper = draws.getInt(from, to);
        const int32_t lower = draws.getInt(1, least);
        return draws.getInt(lower, upper);
    }
    return 0;
}

/// Each squadron's draw of one in thirty, and the two of a move: the map and the place.
int32_t drawBases(const Database& career, zel::Random& draws) {
    int32_t moves = 0;
    for (const Squadron& squadron : career.squadrons) {
        if (draws.getInt(0, 29) != 0)
            continue;
        ++moves;
        draws.next();
        const int32_t place = draws.getInt(0, 2); // which doesn't matter for the count
        EXPECT_TRUE(place >= 0 && squadron.baseName[0] != 0);
    }
    return moves;
}

TEST(WarAdvance, MovesTheDateByTheYear) {
    for (const int32_t year : {1914, 1915, 1916, 1917, 1918, 1919}) {
        SmallWar war;
        int32_t moves = 0;
        for (int32_t i = 0; i < 40; ++i) {
            setDate(war.career, year, 1, 1);
            zel::Random draws = zel::sharedRandom();
            Calendar expected(year, 1, 1);
            expected.addDays(drawDays(year, draws));
            SquadronSimulator::advanceWar();
            ASSERT_EQ(war.career.calendar().dateNumber(), expected.dateNumber());
            moves += drawBases(war.career, draws);
            ASSERT_EQ(drawsBetween(draws, zel::sharedRandom()), 0) << "in " << year;
        }
        EXPECT_GT(moves, 0);
        for (const Pilot& pilot : war.career.pilots)
            EXPECT_EQ(pilot.alive, 1) << "without a generator nobody fights";
    }
}

TEST(WarAdvance, FightsHundredsOfMissions) {
    for (const int32_t year : {1915, 1916, 1918}) {
        SmallWar war;
        MissionGenerator generator;
        setDate(war.career, year, 1, 1);
        int32_t flown = 0;
        for (const Pilot& pilot : war.career.pilots)
            flown -= pilot.missions;
        zel::Random draws = zel::sharedRandom();
        drawDays(year, draws);
        int32_t missions = draws.getInt(400, 750);
        if (year == 1915)
            missions /= 2;
        for (int32_t i = 0; i < missions; ++i) { // the limit of steps, each draw bounds the next
            const int32_t outer = draws.getInt(10, 30000);
            const int32_t middle = draws.getInt(10, outer);
            EXPECT_GE(draws.getInt(10, middle), 10);
        }
        drawBases(war.career, draws);
        const Counter counter;
        SquadronSimulator::advanceWar();
        EXPECT_EQ(counter.missions, missions);
        EXPECT_FLOAT_EQ(counter.lastShare, 1);
        EXPECT_EQ(counter.lastDate, war.career.calendar().dateNumber());
        EXPECT_EQ(drawsBetween(draws, zel::sharedRandom()), 0) << "in " << year;
        for (const Pilot& pilot : war.career.pilots)
            flown += pilot.missions;
        EXPECT_TRUE(flown >= missions * 2 && flown <= missions * 8) << "two to eight planes each";
        for (const Squadron& squadron : war.career.squadrons)
            for (int32_t slot = 0; slot < squadron.pilotCount; ++slot)
                EXPECT_EQ(war.career.pilots[static_cast<size_t>(squadron.slots[slot])].alive, 1);
        EXPECT_GT(war.career.pilots.size(), 72u) << "the fallen are replaced";
    }
}

// His squadron flies on without him, and so does the war when he has fallen.
TEST(WarAdvance, LeavesThePlayerOut) {
    SmallWar war;
    MissionGenerator generator;
    setDate(war.career, 1917, 5, 1);
    war.career.playerPilot = war.career.squadrons[2].slots[3];
    const uint16_t missions = war.career.player().missions;
    SquadronSimulator::advanceWar();
    EXPECT_EQ(war.career.player().missions, missions);
    EXPECT_EQ(war.career.player().alive, 1);
    EXPECT_EQ(war.career.playerPilot, 27);
}

TEST(WarAdvance, GoesUpToTheDate) {
    SmallWar war;
    setDate(war.career, 1915, 12, 1);
    const Counter counter;
    zel::Random draws = zel::sharedRandom();
    war.career.simulateToDate(1915, 12, 1);
    EXPECT_EQ(counter.missions, draws.getInt(200, 300)) << "the start-up missions";
    EXPECT_EQ(war.career.calendar().dateNumber(), 19151201);
    EXPECT_TRUE(war.lines.holds("SIMULATED MISSIONS\n"));
    EXPECT_EQ(MissionGenerator::instance(), nullptr) << "the generator was for this call";

    MissionGenerator generator;
    war.career.simulateToDate(1916, 2, 10);
    EXPECT_GE(war.career.calendar().dateNumber(), 19160210);
    EXPECT_LT(war.career.calendar().dateNumber(), 19160310) << "one period further at most";
    EXPECT_FLOAT_EQ(counter.lastShare, 1);
    EXPECT_EQ(MissionGenerator::instance(), &generator);
}

TEST(WarAdvance, EndsWhenNoDayMoves) {
    SmallWar war;
    setDate(war.career, 1918, 12, 25);
    war.career.simulateToDate(1925, 1, 1);
    EXPECT_GE(war.career.calendar().dateNumber(), 19190101);
    EXPECT_LT(war.career.calendar().dateNumber(), 19190120);
}

} // namespace
