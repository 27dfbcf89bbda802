#include "app/career/Bases.h"

#include <map>
#include <set>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "engine/core/Registry.h"
#include "tests/support/Draws.h"
#include "tests/support/HandMade.h"
#include "tests/support/SmallCareer.h"

namespace {

void chooseMaps(const char* western, const char* channel) {
    zel::Registry::set("mapWestern", western);
    zel::Registry::set("mapChannel", channel);
}

TEST(Bases, AreDrawnBySideAndMap) {
    const SmallWorld world;
    Database career;
    squadronOf(career, France, {0});
    squadronOf(career, Germany, {0});
    career.playerPilot = -1;
    std::map<std::pair<int32_t, uint8_t>, std::set<std::string>> seen; // by squadron and map
    int32_t onChannel = 0;
    for (int32_t i = 0; i < 400; ++i) {
        const bool mayDraw = i % 4 < 2;
        zel::Random draws = zel::sharedRandom();
        const bool channel = mayDraw && draws.getInt(0, 4) == 0;
        assignBase(career, i % 2, i % 2 == 0, mayDraw);
        const Squadron& squadron = career.squadrons[static_cast<size_t>(i % 2)];
        ASSERT_EQ(squadron.onChannelMap, channel ? 1 : 0);
        ASSERT_EQ(drawsBetween(draws, zel::sharedRandom()), 1) << "and one for the airfield";
        seen[{i % 2, squadron.onChannelMap}].insert(squadron.baseName);
        onChannel += squadron.onChannelMap;
    }
    EXPECT_TRUE(onChannel > 20 && onChannel < 60) << "one in five, where it may be drawn";
    using Names = std::set<std::string>;
    EXPECT_EQ((seen[{0, 0}]), (Names{"Amiens", "Arras", "Reims", "Toul", "Verdun"}));
    EXPECT_EQ((seen[{1, 0}]), (Names{"Cambrai", "Cappy", "Lille", "Metz"}));
    EXPECT_EQ((seen[{0, 1}]), (Names{"Dunkerque", "St. Omer", "Ypres"}));
    EXPECT_EQ((seen[{1, 1}]), (Names{"Ostende", "Roulers", "Zeebrugge"}));
    assignBase(career, 7, true, true); // there is no such squadron
}

TEST(Bases, KeepThePlayerOnHisMaps) {
    const SmallWorld world;
    Database career;
    squadronOf(career, France, {0});
    Squadron& home = career.squadrons[0];
    for (const auto& [western, channel, map] :
         {std::tuple{"1", "0", 0}, {"0", "1", 1}, {"0", "0", 0}}) {
        chooseMaps(western, channel);
        for (int32_t i = 0; i < 20; ++i) {
            assignBase(career, 0, true, i % 2 == 0);
            EXPECT_EQ(home.onChannelMap, map) << western << channel;
        }
    }

    // When he comes back to the office: the map his base is on, and the one it is on then.
    for (const auto& [western, channel, before, after] : {std::tuple{"0", "1", 0, 1},
                                                          {"1", "0", 1, 0},
                                                          {"0", "0", 1, 0},
                                                          {"0", "0", 0, 0},
                                                          {"1", "1", 1, 1},
                                                          {"1", "0", 0, 0}}) {
        chooseMaps(western, channel);
        home.onChannelMap = static_cast<uint8_t>(before);
        const zel::Random draws = zel::sharedRandom();
        keepPlayerOnAllowedMap(career);
        EXPECT_EQ(home.onChannelMap, after) << western << channel << before;
        EXPECT_EQ(drawsBetween(draws, zel::sharedRandom()), before != after ? 1 : 0);
    }
}

} // namespace
