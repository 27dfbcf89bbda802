#include "engine/graphics/FormatBMP.h"

#include <cstdlib>

#include "engine/core/Log.h"
#include "engine/graphics/ByteReader.h"

namespace zel {

namespace {

constexpr int32_t BmpHeaderSize = 54; // bytes
constexpr uint32_t InfoSize = 40;     // the least size of the second part of the header

void makeOpaqueIfInvisible(BitmapData& data) {
    if (data.depth != 4)
        return;
    for (int32_t y = 0; y < data.pictureHeight; ++y)
        for (int32_t x = 0; x < data.pictureWidth; ++x)
            if (data.line(y)[size_t(x) * 4 + 3] != 0)
                return;
    for (int32_t y = 0; y < data.pictureHeight; ++y)
        for (int32_t x = 0; x < data.pictureWidth; ++x)
            data.line(y)[size_t(x) * 4 + 3] = 255;
}

} // namespace

bool FormatBMP::checkHeader() {
    char bytes[BmpHeaderSize] = {};
    const bool isLongEnough = file->read(bytes, sizeof bytes);
    ByteReader header({bytes, sizeof bytes});
    if (!isLongEnough || header.bytes(2) != "BM") {
        log("Not a BMP file", "FormatBMP", LogDebug);
        return false;
    }
    header.bytes(8); // file size, reserved
    pixelOffset = header.u32();
    const uint32_t infoSize = header.u32();
    const int64_t signedWidth = static_cast<int32_t>(header.u32());
    const int64_t signedHeight = static_cast<int32_t>(header.u32());
    header.bytes(2); // planes
    const int32_t bits = header.u16();
    const uint32_t compression = header.u32();
    const char* error = nullptr;
    if (compression != 0)
        error = "Unsupported compression";
    else if (!isDepth(bits))
        error = "BMP depth unsupported";
    else if (infoSize < InfoSize)
        error = "BMP header unsupported";
    if (error != nullptr) {
        // Debug only: FormatANY knows more kinds of these files.
        log(error, "FormatBMP", LogDebug);
        return false;
    }
    topDown = signedHeight < 0;
    depth = bits / 8;
    return acceptSize(signedWidth, std::abs(signedHeight));
}

bool FormatBMP::decode(BitmapData& data) {
    if (!readRows(data, (4 - width * depth % 4) % 4, topDown))
        return false;
    makeOpaqueIfInvisible(data);
    return true;
}

} // namespace zel
