#include "standin/fight/Dogfight.h"

#include <gtest/gtest.h>

#include "tests/standin/mission/TestMission.h"

namespace standin {

namespace {

FlightCourse fly(const Mission& mission, uint32_t seed) {
    zel::Random random(seed);
    return Dogfight(mission, {}, random).run();
}

/// Planes that each side lost, and what became of the human, over many seeds.
struct Tally {
    int32_t own = 0, enemies = 0; // planes lost
    int32_t humanLost = 0, humanDead = 0, humanVictories = 0;
    int32_t won = 0, lost = 0; // flights with fewer or more losses than the enemy
    double seconds = 0;
};

Tally tally(const Mission& mission, uint32_t seeds) {
    Tally sum;
    const int32_t planes = static_cast<int32_t>(mission.planes.size());
    const size_t human = static_cast<size_t>(mission.human);
    for (uint32_t seed = 1; seed <= seeds; ++seed) {
        const FlightCourse flight = fly(mission, seed);
        int32_t own = 0;
        int32_t enemies = 0;
        for (size_t i = 0; i < mission.planes.size(); ++i)
            if (flight.planes[i].destroyed)
                ++(mission.planes[i].coalition == mission.planes[human].coalition ? own : enemies);
        sum.own += own;
        sum.enemies += enemies;
        sum.won += own < enemies ? 1 : 0;
        sum.lost += own > enemies ? 1 : 0;
        sum.humanLost += flight.planes[human].destroyed ? 1 : 0;
        sum.humanDead += flight.planes[human].pilotAlive ? 0 : 1;
        sum.seconds += static_cast<double>(flight.endTick) / TicksPerSecond;
        for (const Event& event : flight.events)
            if (event.kind == EventKind::Destroyed && event.attacker == mission.human &&
                event.target < planes)
                ++sum.humanVictories;
    }
    return sum;
}

/// The six, with wing men and enemies of these levels.
Tally tallyOf(int32_t own, int32_t enemies) {
    std::vector<TestPlane> planes = sixPlanes();
    for (size_t i = 1; i < planes.size(); ++i)
        planes[i].level = i < 3 ? own : enemies;
    return tally(readMission(missionText(planes)), 100);
}

} // namespace

TEST(Dogfight, StaysInTheSky) {
    for (const bool inAir : {true, false}) {
        const Mission mission = readMission(missionText(sixPlanes(), inAir));
        for (uint32_t seed = 1; seed <= 40; ++seed) {
            const FlightCourse flight = fly(mission, seed);
            for (const Event& event : flight.events) {
                EXPECT_LE(event.tick, flight.endTick);
                EXPECT_GE(event.position.y, 45) << "under the ground";
                EXPECT_LT(event.position.y, 5000);
                EXPECT_LT(groundDistance(event.position, mission.areas[0].position), 30000);
            }
            EXPECT_LE(flight.endTick, 46 * 60 * TicksPerSecond) << "no tank lasts longer";
        }
    }
}

TEST(Dogfight, IsWonAndLost) {
    // The bounds are loose: what matters is that neither side is sure to win.
    const Tally even = tally(readMission(missionText(sixPlanes())), 200);
    EXPECT_GT(even.won, 40);
    EXPECT_GT(even.lost, 20);
    EXPECT_GT(even.own + even.enemies, 150) << "blood is drawn";
    EXPECT_LT(even.own + even.enemies, 800) << "and some come home";
    EXPECT_GT(even.humanVictories, 40);
    EXPECT_GT(even.humanLost, 10);
    EXPECT_LT(even.humanLost, 100);
    EXPECT_GT(even.humanDead, 5);
    EXPECT_LT(even.humanDead, even.humanLost) << "a lost plane is not a lost man";
    EXPECT_GT(even.seconds / 200, 180);
    EXPECT_LT(even.seconds / 200, 1200);
}

TEST(Dogfight, DependsOnWhoFlies) {
    const Tally aces = tallyOf(4, 1);
    EXPECT_GT(aces.won, 2 * aces.lost);
    const Tally novices = tallyOf(1, 4);
    EXPECT_GT(novices.lost, 2 * novices.won);
    std::vector<TestPlane> many = sixPlanes();
    many.erase(many.begin() + 1, many.begin() + 3);
    const Tally alone = tally(readMission(missionText(many)), 100);
    EXPECT_GT(alone.humanLost, 30) << "one against three";
    EXPECT_GT(alone.humanVictories, 5) << "but he isn't helpless";
}

TEST(Dogfight, OnlyThoseWithOrdersFireAndNotBeforeThem) {
    const std::string text =
        replaced(missionText(sixPlanes()), "Objects = [12,18]", "Objects = [12]");
    const Mission mission = readMission(replaced(text, "Time = 3;", "Time = 125.005;"));
    for (uint32_t seed = 1; seed <= 20; ++seed)
        for (const Event& event : fly(mission, seed).events) {
            if (event.kind != EventKind::Hit)
                continue;
            ASSERT_TRUE(event.attacker < 3 || event.attacker >= 12) << "without an order";
            ASSERT_GT(event.tick, 125 * TicksPerSecond) << "before the order";
        }
}

} // namespace standin
