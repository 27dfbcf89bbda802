#include "engine/graphics/BitmapReader.h"

namespace zel {

namespace {

int32_t nextPowerOfTwo(int32_t size) {
    int32_t power = 1;
    while (power < size)
        power *= 2;
    return power;
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

bool BitmapReader::isSizeAccepted(int64_t width, int64_t height) {
    const auto size = [&] { return std::to_string(width) + " by " + std::to_string(height); };
    if (width < 1 || height < 1)
        fault = "empty: " + size() + " pixels";
    else if (width > MaxPictureSide || height > MaxPictureSide)
        fault = "too large: " + size() + " pixels, at most " + String(MaxPictureSide) + " by " +
                MaxPictureSide;
    return fault.empty();
}

void BitmapReader::allocate(BitmapData& data, int32_t width, int32_t height, int32_t depth) const {
    data.pictureWidth = width;
    data.pictureHeight = height;
    data.width = powerOfTwo ? nextPowerOfTwo(width) : width;
    data.height = powerOfTwo ? nextPowerOfTwo(height) : height;
    data.depth = depth;
    data.pixels.assign(data.rowSize() * static_cast<size_t>(data.height), 0);
}

} // namespace zel
