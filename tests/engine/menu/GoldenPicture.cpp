#include "tests/engine/menu/GoldenPicture.h"

#include <cstdlib>
#include <filesystem>

#include <stb_image_write.h>

#include "engine/graphics/Bitmap.h"

namespace {

constexpr int32_t FarOff = 24;         // of 255, in any channel
constexpr double ShareAllowed = 0.005; // of the pixels may be that far off
constexpr int JpegQuality = 95;

bool isFarOff(const uint8_t* pixel, uint32_t golden) {
    for (int32_t channel = 0; channel < 3; ++channel) {
        const auto kept = static_cast<int32_t>(golden >> (16 - 8 * channel) & 0xFF);
        if (std::abs(pixel[channel] - kept) > FarOff)
            return true;
    }
    return false;
}

/// The share of pixels that are far off; 1 if the picture isn't there or of another size.
double difference(const std::vector<uint8_t>& pixels, int32_t width, int32_t height,
                  const std::string& file) {
    zel::Bitmap golden;
    if (!golden.load(file, false) || golden.width() != width || golden.height() != height ||
        pixels.size() != static_cast<size_t>(width) * static_cast<size_t>(height) * 3)
        return 1.0;
    int32_t off = 0;
    const uint8_t* pixel = pixels.data();
    for (int32_t y = 0; y < height; ++y)
        for (int32_t x = 0; x < width; ++x, pixel += 3)
            off += isFarOff(pixel, golden.pixelAt(x, y));
    return static_cast<double>(off) / (width * height);
}

} // namespace

testing::AssertionResult isGoldenPicture(const std::vector<uint8_t>& pixels, int32_t width,
                                         int32_t height, const std::string& goldenFile,
                                         const std::string& newFile) {
    const double share = difference(pixels, width, height, goldenFile);
    if (share <= ShareAllowed)
        return testing::AssertionSuccess();
    const bool written = writePicture(newFile, pixels, width, height);
    return testing::AssertionFailure()
           << goldenFile << ": " << share * 100 << " % of the pixels differ; "
           << (written ? "the new picture is " : "can't write ") << newFile;
}

std::vector<uint8_t> halved(const std::vector<uint8_t>& pixels, int32_t width, int32_t height) {
    std::vector<uint8_t> result;
    if (pixels.size() != static_cast<size_t>(width) * static_cast<size_t>(height) * 3)
        return result;
    const size_t row = static_cast<size_t>(width) * 3;
    result.reserve(pixels.size() / 4);
    for (size_t y = 0; y < static_cast<size_t>(height); y += 2)
        for (size_t x = 0; x < row; x += 6)
            for (size_t channel = 0; channel < 3; ++channel) {
                const uint8_t* above = &pixels[y * row + x + channel];
                const uint8_t* below = above + row;
                result.push_back(
                    static_cast<uint8_t>((above[0] + above[3] + below[0] + below[3] + 2) / 4));
            }
    return result;
}

bool writePicture(const std::string& file, const std::vector<uint8_t>& pixels, int32_t width,
                  int32_t height) {
    const std::filesystem::path path(file);
    std::filesystem::create_directories(path.parent_path());
    if (path.extension() == ".jpg")
        return stbi_write_jpg(file.c_str(), width, height, 3, pixels.data(), JpegQuality) != 0;
    return stbi_write_png(file.c_str(), width, height, 3, pixels.data(), width * 3) != 0;
}
