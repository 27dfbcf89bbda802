#include "engine/graphics/BitmapReader.h"

#include <cstdlib>

#include "engine/core/Log.h"
#include "engine/graphics/ByteReader.h"

namespace zel {

namespace {

constexpr int32_t ZelHeaderSize = 16;
constexpr int32_t BmpHeaderSize = 54;
constexpr uint32_t BmpInfoSize = 40; // the least size of the second part of the header

bool isSide(int64_t size) { return size >= 1 && size <= MaxPictureSide; }
bool isDepth(int32_t bits) { return bits == 24 || bits == 32; }

int32_t nextPowerOfTwo(int32_t size) {
    int32_t power = 1;
    while (power < size)
        power *= 2;
    return power;
}

/// Whether that many bytes stand in the file from that offset on.
bool fits(const File& file, uint32_t offset, int64_t count) {
    return offset + count <= file.fileSize();
}

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

const char* BitmapReader::open(const String& fileName) {
    file.emplace(fileName, FileRead);
    if (file->hasFailed())
        return "Cannot load file";
    return checkHeader() ? nullptr : illegalHeader();
}

const char* BitmapReader::readPixels(BitmapData& data) {
    BitmapData read;
    if (!file || file->hasFailed() || !decode(read))
        return "Unable to read pixel data";
    data = std::move(read);
    return nullptr;
}

void BitmapReader::allocate(BitmapData& data, int32_t width, int32_t height, int32_t depth) const {
    data.pictureWidth = width;
    data.pictureHeight = height;
    data.width = powerOfTwo ? nextPowerOfTwo(width) : width;
    data.height = powerOfTwo ? nextPowerOfTwo(height) : height;
    data.depth = depth;
    data.pixels.assign(data.rowSize() * static_cast<size_t>(data.height), 0);
}

bool RawReader::readRows(BitmapData& data, int32_t padding, bool topDown) {
    const int32_t rowBytes = width * depth;
    const int64_t size = (int64_t(rowBytes) + padding) * height - padding;
    if (!fits(*file, pixelOffset, size) || !file->seek(static_cast<int32_t>(pixelOffset), 0))
        return false;
    allocate(data, width, height, depth);
    data.order = ChannelOrder::Bgr;
    const bool liesAlike = padding == 0 && !topDown && data.width == width && data.height == height;
    if (liesAlike)
        return file->read(data.pixels.data(), rowBytes * height);
    char unused[3];
    for (int32_t row = 0; row < height; ++row) {
        file->read(data.line(topDown ? row : height - 1 - row), rowBytes);
        if (padding > 0 && row + 1 < height)
            file->read(unused, padding);
    }
    return !file->hasFailed();
}

bool FormatZEL::checkHeader() {
    char bytes[ZelHeaderSize] = {};
    const bool isLongEnough = file->read(bytes, sizeof bytes);
    ByteReader header({bytes, sizeof bytes});
    if (!isLongEnough || header.bytes(2) != "ZG") {
        log("Not a ZEL graphics file", "FormatZEL", LogDebug);
        return false;
    }
    pixelOffset = header.u32();
    width = header.u16();
    height = header.u16();
    const int32_t bits = header.u16();
    if (!isDepth(bits)) {
        log("ZEL depth unsupported", "FormatZEL", LogWarning);
        return false;
    }
    depth = bits / 8;
    if (!isSide(width) || !isSide(height)) {
        log("ZEL size unsupported", "FormatZEL", LogWarning);
        return false;
    }
    return true;
}

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
    else if (infoSize < BmpInfoSize || !isSide(signedWidth) || !isSide(std::abs(signedHeight)))
        error = "BMP size unsupported";
    if (error != nullptr) {
        // Debug only: the last reader knows more kinds of these files.
        log(error, "FormatBMP", LogDebug);
        return false;
    }
    topDown = signedHeight < 0;
    width = static_cast<int32_t>(signedWidth);
    height = static_cast<int32_t>(std::abs(signedHeight));
    depth = bits / 8;
    return true;
}

bool FormatBMP::decode(BitmapData& data) {
    if (!readRows(data, (4 - width * depth % 4) % 4, topDown))
        return false;
    makeOpaqueIfInvisible(data);
    return true;
}

} // namespace zel
