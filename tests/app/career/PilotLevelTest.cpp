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
    // Some of them, computed by hand: skill, victories, missions, level.
    const int32_t cases[][4] = {
        {0, 0, 8, 2}, {6, 0, 1, 1}, {0, 2, 8, 3}, {0, 0, 75, 4}, {10, 5, 0, 4}};
    for (const auto& [skill, shotdowns, missions, level] : cases)
        EXPECT_EQ(pilotLevel(skill, shotdowns, missions), level)
            << skill << ' ' << shotdowns << ' ' << missions;
}

} // namespace
