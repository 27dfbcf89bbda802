#include "engine/graphics/FormatANY.h"

#include <cstring>

#include "engine/core/Log.h"
#include "engine/graphics/DecoderGuard.h"
#include "engine/graphics/StbImage.h"

namespace zel {

namespace {

constexpr int32_t MaxPictureSize = 1 << 28; // bytes

// No format compresses better than LZW, which stays below this many pixels a byte. Small pictures
// may be as empty as they like.
constexpr int64_t MaxPixelsPerByte = 4096;
constexpr int64_t SmallPicture = 1 << 20; // pixels

/// Whether a file of that many bytes can hold the picture.
bool isPlausible(const StbInfo& picture, size_t fileSize) {
    const int64_t pixels = int64_t(picture.width) * picture.height;
    return pixels <= SmallPicture + MaxPixelsPerByte * static_cast<int64_t>(fileSize);
}

/// Copies a line; grey becomes three equal colours.
void copyLine(const uint8_t* from, int channels, int32_t width, uint8_t* to) {
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
    if (file->fileSize() <= 0 || file->fileSize() > MaxPictureSize) {
        log("Cannot read file (filesize: " + String(file->fileSize()) + ")", "FormatANY", LogError);
        return false;
    }
    if (!file->readWhole(content)) {
        log("Cannot read data from file", "FormatANY", LogError);
        return false;
    }
    StbInfo info;
    if (!isSafeToDecode(content) || !readStbInfo(content, info) ||
        !acceptSize(info.width, info.height))
        return false;
    if (!isPlausible(info, content.size()))
        fault = String("damaged: ") + info.width + " by " + info.height + " pixels in " +
                std::to_string(content.size()) + " bytes";
    return fault.empty();
}

bool FormatANY::decode(BitmapData& data) {
    StbInfo picture;
    const StbPixels decoded = decodeWithStb(content, picture);
    if (decoded == nullptr || !acceptSize(picture.width, picture.height) ||
        !isPlausible(picture, content.size()) || picture.channels < 1 || picture.channels > 4) {
        log("Can't read data", "FormatANY", LogError);
        return false;
    }
    data.allocate(picture.width, picture.height, picture.channels % 2 == 0 ? 4 : 3, powerOfTwo);
    data.order = ChannelOrder::Rgb;
    const size_t lineSize =
        static_cast<size_t>(picture.width) * static_cast<size_t>(picture.channels);
    for (int32_t y = 0; y < picture.height; ++y)
        copyLine(decoded.get() + static_cast<size_t>(y) * lineSize, picture.channels, picture.width,
                 data.line(y));
    return true;
}

} // namespace zel
