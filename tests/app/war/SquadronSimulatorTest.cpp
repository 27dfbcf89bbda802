#include "app/war/SquadronSimulator.h"

#include <gtest/gtest.h>

#include "tests/support/HandMade.h"
#include "tests/support/SmallCareer.h"

namespace {

TEST(SquadronSimulator, WeighsTheFiveBest) {
    const SmallWorld world;
    Database career;
    squadronOf(career, Germany, {14});
    squadronOf(career, Germany, {1, 4, 10, 2, 8, 6});
    emptySquadron(career, Germany);
    EXPECT_FLOAT_EQ(SquadronSimulator::squadronStrength(0), 5.0F);
    EXPECT_FLOAT_EQ(SquadronSimulator::squadronStrength(1),
                    (10 * 5 + 8 * 4 + 6 * 3 + 4 * 2 + 2 * 1) / 14.0F);
    EXPECT_EQ(SquadronSimulator::squadronStrength(2), 0);
    EXPECT_EQ(SquadronSimulator::squadronStrength(-1), 0);
    career.pilots[0].alive = 0; // a dead man's victories count until his slot is given away
    EXPECT_FLOAT_EQ(SquadronSimulator::squadronStrength(0), 5.0F);
}

} // namespace
