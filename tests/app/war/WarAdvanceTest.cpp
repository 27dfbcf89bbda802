#include "app/war/WarAdvance.h"

#include <gtest/gtest.h>

#include "app/mission/MissionGenerator.h"
#include "tests/support/CareerInvariants.h"
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

/// The draws of a period, in their order.
struct Period {
    /// Three draws: the upper bound, the lower, the days between. None outside the war.
    int32_t days(int32_t year) {
        constexpr int32_t Bounds[][3] = {{16, 28, 16}, {16, 24, 16}, {16, 22, 14}, {14, 18, 12}};
        if (year < 1915 || year > 1918)
            return 0;
        const auto& [from, to, least] = Bounds[year - 1915];
        const int32_t upper = draws.getInt(from, to);
        const int32_t lower = draws.getInt(1, least);
        return draws.getInt(lower, upper);
    }
    /// The missions, and the limit of steps of each: three draws, each of which bounds the next.
    int32_t missions(int32_t year) {
        const int32_t count = draws.getInt(400, 750) / (year == 1915 ? 2 : 1);
        for (int32_t i = 0; i < count; ++i)
            draws.getInt(10, draws.getInt(10, draws.getInt(10, 30000)));
        return count;
    }
    /// Each squadron's draw of one in thirty, and the two of a move: the map and the place.
    int32_t moves(const Database& career) {
        int32_t count = 0;
        for (size_t i = 0; i < career.squadrons.size(); ++i) {
            if (draws.getInt(0, 29) != 0)
                continue;
            ++count;
            draws.next();
            draws.next();
        }
        return count;
    }
    zel::Random draws = zel::sharedRandom();
};

TEST(WarAdvance, MovesTheDateByTheYear) {
    for (const int32_t year : {1914, 1915, 1916, 1917, 1918, 1919}) {
        SmallWar war;
        int32_t moves = 0;
        for (int32_t i = 0; i < 40; ++i) {
            setDate(war.career, year, 1, 1);
            Period period;
            Calendar expected(year, 1, 1);
            expected.addDays(period.days(year));
            advanceWar(war.career, nullptr);
            ASSERT_EQ(war.career.calendar().dateNumber(), expected.dateNumber());
            moves += period.moves(war.career);
            ASSERT_EQ(drawsBetween(period.draws, zel::sharedRandom()), 0) << "in " << year;
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
        war.career.playerPilot = 27;
        const Pilot player = war.career.player();
        int32_t flown = 0;
        for (const Pilot& pilot : war.career.pilots)
            flown -= pilot.missions;
        Period period;
        period.days(year);
        const int32_t missions = period.missions(year);
        period.moves(war.career);
        const Counter counter;
        advanceWar(war.career, &generator);
        EXPECT_EQ(counter.missions, missions);
        EXPECT_FLOAT_EQ(counter.lastShare, 1);
        EXPECT_EQ(counter.lastDate, war.career.calendar().dateNumber());
        EXPECT_EQ(drawsBetween(period.draws, zel::sharedRandom()), 0) << "in " << year;
        for (const Pilot& pilot : war.career.pilots)
            flown += pilot.missions;
        EXPECT_TRUE(flown >= missions * 2 && flown <= missions * 8) << "two to eight planes each";
        for (const Squadron& squadron : war.career.squadrons)
            for (int32_t slot = 0; slot < squadron.pilotCount; ++slot)
                EXPECT_EQ(war.career.pilots[static_cast<size_t>(squadron.slots[slot])].alive, 1);
        EXPECT_GT(war.career.pilots.size(), 72u) << "the fallen are replaced";
        EXPECT_EQ(war.career.playerPilot, 27);
        EXPECT_EQ(war.career.player().missions, player.missions) << "the player takes no part";
        EXPECT_EQ(war.career.player().alive, 1);
    }
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

    const MissionGenerator later;
    simulateToDate(war.career, generator, {1916, 4, 1});
    EXPECT_GE(war.career.calendar().dateNumber(), 19160401);
    EXPECT_TRUE(later.plan.empty()) << "of the two generators it takes the one that it is given";
}

TEST(WarAdvance, EndsWhenNoDayMoves) {
    SmallWar war;
    setDate(war.career, 1918, 12, 25);
    war.career.simulateToDate(1925, 1, 1);
    EXPECT_GE(war.career.calendar().dateNumber(), 19190101);
    EXPECT_LT(war.career.calendar().dateNumber(), 19190120);
}

/// The save of a career that was played to March 1916 while another one is in the same process,
/// whether or not that is the running program's.
std::string saveBesideAnother(bool otherIsCurrent) {
    SmallWorld world;
    world.addHistory();
    std::unique_ptr<Database> databases[2];
    for (std::unique_ptr<Database>& database : databases)
        database = std::make_unique<Database>();
    Database& career = *databases[otherIsCurrent ? 0 : 1];
    Database& other = *databases[otherIsCurrent ? 1 : 0];
    EXPECT_EQ(Database::instance(), otherIsCurrent ? &other : &career);
    other.addSquadron(Germany);
    setDate(other, 1916, 1, 1);
    zel::copyText(other.squadrons[0].baseName, "Its own");

    world.pin(career);
    zel::seedSharedRandom(2);
    career.createCareer(ServiceFrench);
    career.simulateToDate(1916, 3, 1);
    EXPECT_EQ(careerFaults(career), "");
    EXPECT_STREQ(other.squadrons[0].baseName, "Its own");
    EXPECT_EQ(other.calendar().dateNumber(), 19160101);
    EXPECT_EQ(other.pilots.size(), 12u);
    EXPECT_EQ(other.invitationSquadron, -2);
    EXPECT_TRUE(career.storeFile(SaveFileName));
    return world.savedBytes();
}

TEST(WarAdvance, KeepsTwoCareersApart) {
    const std::string save = saveBesideAnother(false);
    EXPECT_GT(save.size(), 400 * sizeof(Squadron));
    EXPECT_TRUE(save == saveBesideAnother(true));
}

} // namespace
