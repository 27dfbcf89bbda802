#include "tests/engine/menu/GoldenPicture.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include <stb_image_write.h>

#include "engine/graphics/Bitmap.h"

namespace {

constexpr int32_t FarOff = 24;                    // of 255, in any channel, at half the size
constexpr double ShareAllowed = 0.005;            // of the pixels may be that far off
constexpr int32_t InkOff = 64;                    // of 255, in brightness, at full size
constexpr int32_t CellWidth = 12, CellHeight = 8; // a quarter of a block of about two letters
constexpr int32_t InkAllowed = 20;                // pixels of a block may be that far off

Picture loaded(const std::string& file) {
    zel::Bitmap bitmap;
    Picture result;
    if (!bitmap.load(file, false))
        return result;
    result.width = bitmap.width();
    result.height = bitmap.height();
    result.pixels.resize(static_cast<size_t>(result.width) * static_cast<size_t>(result.height) *
                         3);
    uint8_t* channel = result.pixels.data();
    for (int32_t y = 0; y < result.height; ++y)
        for (int32_t x = 0; x < result.width; ++x) {
            const uint32_t argb = bitmap.pixelAt(x, y);
            for (const int32_t shift : {16, 8, 0})
                *channel++ = static_cast<uint8_t>(argb >> shift & 0xFF);
        }
    return result;
}

/// The share of pixels that are far off at half the size, where each is the mean of four. REQUIRES:
/// even sides.
double difference(const Picture& picture, const Picture& golden) {
    const size_t row = static_cast<size_t>(picture.width) * 3;
    const auto mean = [row](const Picture& of, size_t place) {
        const uint8_t* above = &of.pixels[place];
        return (above[0] + above[3] + above[row] + above[row + 3] + 2) / 4;
    };
    const auto isFar = [&](size_t place) {
        return std::abs(mean(picture, place) - mean(golden, place)) > FarOff;
    };
    size_t off = 0;
    for (size_t line = 0; line < picture.pixels.size(); line += row * 2)
        for (size_t place = line; place < line + row; place += 6)
            off += isFar(place) || isFar(place + 1) || isFar(place + 2);
    return static_cast<double>(off * 12) / static_cast<double>(picture.pixels.size());
}

int32_t brightness(const Picture& picture, int32_t x, int32_t y) {
    const uint8_t* pixel =
        &picture.pixels[(static_cast<size_t>(y) * static_cast<size_t>(picture.width) +
                         static_cast<size_t>(x)) *
                        3];
    return (pixel[0] * 3 + pixel[1] * 6 + pixel[2]) / 10;
}

/// The block of two by two cells where most pixels differ in brightness.
struct Block {
    int32_t x = 0, y = 0, off = 0;
};

Block worstBlock(const Picture& picture, const Picture& golden) {
    const int32_t columns = picture.width / CellWidth + 1, rows = picture.height / CellHeight + 1;
    std::vector<int32_t> cells(static_cast<size_t>(columns) * static_cast<size_t>(rows));
    for (int32_t y = 0; y < picture.height; ++y)
        for (int32_t x = 0; x < picture.width; ++x)
            cells[y / CellHeight * columns + x / CellWidth] +=
                std::abs(brightness(picture, x, y) - brightness(golden, x, y)) > InkOff;
    Block worst;
    for (int32_t row = 0; row < rows - 1; ++row)
        for (int32_t column = 0; column < columns - 1; ++column) {
            const int32_t* cell = &cells[row * columns + column];
            const int32_t off = cell[0] + cell[1] + cell[columns] + cell[columns + 1];
            if (off > worst.off)
                worst = {column * CellWidth, row * CellHeight, off};
        }
    return worst;
}

/// Empty if the picture matches the kept one.
std::string fault(const Picture& picture, const Picture& golden) {
    if (golden.width != picture.width || golden.height != picture.height ||
        golden.pixels.size() != picture.pixels.size())
        return "it isn't there, or of another size";
    const double share = difference(picture, golden);
    if (share > ShareAllowed)
        return std::to_string(share * 100) + " % of the pixels differ";
    const Block worst = worstBlock(picture, golden);
    return worst.off > InkAllowed ? std::to_string(worst.off) + " pixels differ at " +
                                        std::to_string(worst.x) + ", " + std::to_string(worst.y)
                                  : "";
}

} // namespace

testing::AssertionResult isGoldenPicture(const Picture& picture, const std::string& goldenFile,
                                         const std::string& newFile) {
    const std::string found = fault(picture, loaded(goldenFile));
    if (found.empty())
        return testing::AssertionSuccess();
    const bool written = writePicture(newFile, picture);
    return testing::AssertionFailure()
           << goldenFile << ": " << found << "; "
           << (written ? "the new picture is " : "can't write ") << newFile;
}

bool writePicture(const std::string& file, const Picture& picture, int quality) {
    const std::filesystem::path path(file);
    std::filesystem::create_directories(path.parent_path());
    if (path.extension() == ".jpg")
        return stbi_write_jpg(file.c_str(), picture.width, picture.height, 3, picture.pixels.data(),
                              quality) != 0;
    return stbi_write_png(file.c_str(), picture.width, picture.height, 3, picture.pixels.data(),
                          picture.width * 3) != 0;
}
