#include <cstring>
#include <memory>

#include <stb_image.h>

#include "engine/core/Log.h"
#include "engine/graphics/BitmapReader.h"
#include "engine/graphics/DecoderGuard.h"

namespace zel {

namespace {

constexpr int32_t MaxFileSize = 1 << 28; // bytes

// No format packs a picture tighter than LZW does, and that is below this many pixels a byte. Small
// pictures may be as empty as they like.
constexpr int64_t MaxPixelsPerByte = 4096;
constexpr int64_t SmallPicture = 1 << 20; // pixels

struct Decoded {
    int width = 0;
    int height = 0;
    int channels = 0;
};

const stbi_uc* start(const std::string& content) {
    return reinterpret_cast<const stbi_uc*>(content.data());
}

bool isPlausible(const Decoded& picture, size_t fileSize) {
    if (picture.width < 1 || picture.width > MaxPictureSide || picture.height < 1 ||
        picture.height > MaxPictureSide)
        return false;
    const int64_t pixels = int64_t(picture.width) * picture.height;
    return pixels <= SmallPicture + MaxPixelsPerByte * static_cast<int64_t>(fileSize);
}

/// Copies a line; grey becomes three equal colours.
void copyLine(const stbi_uc* from, int channels, int32_t width, uint8_t* to) {
    if (channels >= 3) {
        std::memcpy(to, from, static_cast<size_t>(width) * static_cast<size_t>(channels));
        return;
    }
    for (int32_t x = 0; x < width; ++x, from += channels) {
        for (int colour = 0; colour < 3; ++colour)
            *to++ = from[0];
        if (channels == 2)
            *to++ = from[1];
    }
}

} // namespace

bool FormatANY::checkHeader() {
    if (file->fileSize() <= 0 || file->fileSize() > MaxFileSize) {
        log("Cannot read file (filesize: " + String(file->fileSize()) + ")", "FormatANY", LogError);
        return false;
    }
    if (!file->readWhole(content)) {
        log("Cannot read data from file", "FormatANY", LogError);
        return false;
    }
    Decoded info;
    return isSafeToDecode(content) &&
           stbi_info_from_memory(start(content), static_cast<int>(content.size()), &info.width,
                                 &info.height, &info.channels) != 0 &&
           isPlausible(info, content.size());
}

bool FormatANY::decode(BitmapData& data) {
    struct Release {
        void operator()(stbi_uc* pixels) const { stbi_image_free(pixels); }
    };
    Decoded picture;
    const std::unique_ptr<stbi_uc, Release> decoded(
        stbi_load_from_memory(start(content), static_cast<int>(content.size()), &picture.width,
                              &picture.height, &picture.channels, 0));
    if (decoded == nullptr || !isPlausible(picture, content.size()) || picture.channels < 1 ||
        picture.channels > 4) {
        log("Can't read data", "FormatANY", LogError);
        return false;
    }
    allocate(data, picture.width, picture.height, picture.channels % 2 == 0 ? 4 : 3);
    data.order = ChannelOrder::Rgb;
    const size_t lineSize =
        static_cast<size_t>(picture.width) * static_cast<size_t>(picture.channels);
    for (int32_t y = 0; y < picture.height; ++y)
        copyLine(decoded.get() + static_cast<size_t>(y) * lineSize, picture.channels, picture.width,
                 data.line(y));
    return true;
}

} // namespace zel
