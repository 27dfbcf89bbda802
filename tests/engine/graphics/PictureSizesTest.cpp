#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "engine/graphics/Bitmap.h"
#include "engine/graphics/PictureDetail.h"

namespace {

constexpr int32_t Block = 16;   // pixels of the design
constexpr int32_t MostOff = 24; // of 255, of a block's mean

/// The mean of alpha, red, green and blue in a block, weighted with alpha.
std::array<int64_t, 4> meanOf(const zel::Bitmap& picture, int32_t left, int32_t top,
                              int32_t detail) {
    std::array<int64_t, 4> sums{};
    const int32_t side = Block * detail;
    for (int32_t i = 0; i < side * side; ++i) {
        const uint32_t argb = picture.pixelAt(left * detail + i % side, top * detail + i / side);
        const int64_t alpha = argb >> 24;
        sums[0] += alpha;
        for (size_t k = 1; k < 4; ++k)
            sums[k] += (argb >> (24 - 8 * k) & 255) * alpha / 255;
    }
    for (int64_t& sum : sums)
        sum /= int64_t(side) * side;
    return sums;
}

// A picture that was not drawn again with the other would show something else on large windows.
TEST(PictureSizesTest, ShowTheSame) {
    int32_t pairs = 0;
    for (const auto& entry : std::filesystem::directory_iterator(PICTURE_FOLDER)) {
        const zel::String file = entry.path().string();
        const zel::String doubledFile = zel::PictureDetail::doubledName(file);
        const std::string stem = entry.path().stem().string();
        if (entry.path().extension() != ".png" || stem.find("@2x") != stem.npos)
            continue;
        if (!std::filesystem::exists(doubledFile.c_str())) {
            EXPECT_TRUE(stem == "blank" || stem == "map_off" || stem.substr(0, 4) == "icon")
                << stem;
            continue;
        }
        ++pairs;
        zel::Bitmap plain, doubled;
        ASSERT_TRUE(plain.load(file, false) && doubled.load(doubledFile, false)) << stem;
        ASSERT_EQ(doubled.width(), plain.width() * 2) << stem;
        ASSERT_EQ(doubled.height(), plain.height() * 2) << stem;
        int64_t worst = 0; // of a quarter of the blocks, or it takes long
        for (int32_t y = 0; y + Block <= plain.height(); y += 2 * Block)
            for (int32_t x = 0; x + Block <= plain.width(); x += 2 * Block) {
                const auto one = meanOf(plain, x, y, 1);
                const auto two = meanOf(doubled, x, y, 2);
                for (size_t k = 0; k < one.size(); ++k)
                    worst = std::max(worst, std::abs(one[k] - two[k]));
            }
        EXPECT_LT(worst, MostOff) << stem;
    }
    EXPECT_GT(pairs, 80);
}

} // namespace
