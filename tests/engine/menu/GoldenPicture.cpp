#include "tests/engine/menu/GoldenPicture.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include <stb_image_write.h>

#include "engine/graphics/Bitmap.h"
#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr int32_t FarOff = 24;                       // of 255, in any channel, at half the size
constexpr double ShareAllowed = 0.005;               // of the pixels may be that far off
constexpr int32_t InkOff = 64;                       // of 255, in brightness, at full size
constexpr int32_t BlockWidth = 24, BlockHeight = 16; // about two letters
constexpr int32_t InkAllowed = 20;                   // pixels of a block may be that far off

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

/// The most pixels of ink that differ in a block of the rectangle.
int32_t inkDifference(const Picture& picture, const Picture& golden, const zel::PixelRect& rect) {
    const int32_t right = std::min(rect.x + rect.width, picture.width);
    const int32_t bottom = std::min(rect.y + rect.height, picture.height);
    int32_t most = 0;
    for (int32_t top = std::max(rect.y, 0); top < bottom; top += BlockHeight / 2)
        for (int32_t left = std::max(rect.x, 0); left < right; left += BlockWidth / 2) {
            int32_t off = 0;
            for (int32_t y = top; y < std::min(top + BlockHeight, bottom); ++y)
                for (int32_t x = left; x < std::min(left + BlockWidth, right); ++x)
                    off += std::abs(brightness(picture, x, y) - brightness(golden, x, y)) > InkOff;
            most = std::max(most, off);
        }
    return most;
}

/// Empty if the picture is the kept one.
std::string fault(const Picture& picture, const Picture& golden,
                  const std::vector<zel::PixelRect>& texts) {
    if (golden.width != picture.width || golden.height != picture.height ||
        golden.pixels.size() != picture.pixels.size())
        return "it isn't there, or of another size";
    const double share = difference(picture, golden);
    if (share > ShareAllowed)
        return std::to_string(share * 100) + " % of the pixels differ";
    for (const zel::PixelRect& rect : texts)
        if (const int32_t ink = inkDifference(picture, golden, rect); ink > InkAllowed)
            return "the text at " + std::to_string(rect.x) + ", " + std::to_string(rect.y) +
                   " differs by " + std::to_string(ink) + " pixels";
    return "";
}

} // namespace

std::vector<zel::PixelRect> textRects(const zel::Menu& menu) {
    std::vector<zel::PixelRect> result;
    for (const auto& [name, widget] : menu.getWidgets())
        if (widget->isVisible() && !widget->getText().empty())
            result.push_back(widget->getBounds().currentRect());
    for (const auto& [name, area] : menu.getTextAreas())
        if (area->isVisible() && !area->getText().empty())
            result.push_back(area->getBounds().currentRect());
    return result;
}

testing::AssertionResult isGoldenPicture(const Picture& picture,
                                         const std::vector<zel::PixelRect>& texts,
                                         const std::string& goldenFile,
                                         const std::string& newFile) {
    const std::string found = fault(picture, loaded(goldenFile), texts);
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
