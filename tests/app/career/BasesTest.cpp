#include "app/career/Bases.h"

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

    // What happens when he comes back to the office: the map that his base is on, and the one that
    // it is on then.
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
