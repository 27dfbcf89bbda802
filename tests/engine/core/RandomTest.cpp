#include "engine/core/Random.h"

#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "engine/core/Clock.h"

namespace {

constexpr int32_t Lowest = std::numeric_limits<int32_t>::min();
constexpr int32_t Highest = std::numeric_limits<int32_t>::max();

/// Whether a generator continues as the library's own does from that seed.
bool goesOnAs(zel::Random random, uint32_t seed) {
    std::mt19937 reference(seed);
    for (int i = 0; i < 2000; ++i)
        if (random.next() != reference())
            return false;
    return true;
}

TEST(Random, GivesThePublishedSequence) {
    // From the 2002 reference code and the C++ standard: seed 5489, its first and 10000th value.
    zel::Random random(5489);
    EXPECT_EQ(random.next(), 3499211612U);
    for (int i = 2; i < 10000; ++i)
        random.next();
    EXPECT_EQ(random.next(), 4123659995U);
    zel::Random dropping(5489);
    dropping.discard(600);
    dropping.discard(9399);
    EXPECT_EQ(dropping.next(), 4123659995U) << "the 10000th again";
    for (const uint32_t seed : {1U, 42U, 0x80000000U, 0xFFFFFFFFU}) {
        random.seed(seed); // in the middle of a block
        EXPECT_TRUE(goesOnAs(random, seed)) << seed;
    }
}

// Whatever is taken between two calls of ahead(), even if a block ends in between.
TEST(Random, ShowsTheValuesAhead) {
    zel::Random random(7);
    std::mt19937 reference(7);
    for (uint32_t look = 0; look < 3000; ++look) {
        const uint32_t* values = random.ahead();
        ASSERT_GE(random.ready(), zel::Random::LeastAhead);
        std::mt19937 following = reference;
        for (uint32_t i = 0; i < random.ready(); ++i)
            ASSERT_EQ(values[i], following()) << look << ", " << i;
        const uint32_t taken = look % (zel::Random::LeastAhead + 1);
        random.skip(taken);
        reference.discard(taken);
        for (uint32_t i = 0; i < look % 3; ++i)
            ASSERT_EQ(random.next(), reference());
    }
}

TEST(Random, KeepsToItsBounds) {
    zel::Random random(11);
    std::mt19937 reference(11);
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(random.getInt(-3, 3), int32_t(reference() % 7) - 3);
        EXPECT_EQ(random.getInt(5, 2), int32_t(reference() % 4) + 2) << "exchanged";
        EXPECT_EQ(random.getInt(Lowest, Highest), int32_t(int64_t(reference()) + Lowest));
        EXPECT_EQ(random.getInt(Lowest, Highest - 1),
                  int32_t(int64_t(reference() % 0xFFFFFFFFU) + Lowest));
        EXPECT_EQ(random.getBool(), reference() % 2 == 1);
        const float share = static_cast<float>(reference()) / 4294967296.0F;
        EXPECT_EQ(random.getFloat(-5.0F, 3.0F), share * 8.0F - 5.0F);
    }
    // The first value of this seed is 0xFFFFFF80 or more, which as a float is 2 to the 32.
    EXPECT_EQ(zel::Random(14784396).getFloat(), 1.0F);
}

TEST(Random, SeedsZeroFromTheTicksAndTheStaticNumber) {
    zel::setTickSource([] { return 7U; });
    zel::Random::setStaticNumber(100);
    EXPECT_TRUE(goesOnAs(zel::Random(), 107)) << "and as freshly seeded";
    const uint32_t newStaticNumber = std::mt19937(107)();
    zel::Random second(99);
    second.seed(0);
    EXPECT_TRUE(goesOnAs(second, newStaticNumber + 7)) << "another one in the same millisecond";
    zel::Random::setStaticNumber(0xFFFFFFF9U);
    EXPECT_TRUE(goesOnAs(zel::Random(), 0)) << "a sum of 0 is used as it is";
    zel::setTickSource(nullptr);
}

} // namespace
