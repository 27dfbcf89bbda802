#include "app/career/PilotLevel.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/support/SmallCareer.h"

namespace {

TEST(PilotLevel, FollowsTheRule) {
    std::string levels;
    for (int32_t skill = -1; skill <= 14; ++skill)
        for (int32_t shotdowns = 0; shotdowns <= 20; ++shotdowns)
            for (int32_t missions = 0; missions <= 90; ++missions)
                levels += std::to_string(pilotLevel(skill, shotdowns, missions));
    EXPECT_EQ(levels, referenceResult("levels"));
}

} // namespace
