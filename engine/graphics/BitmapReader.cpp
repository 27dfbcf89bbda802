#include "engine/graphics/BitmapReader.h"

namespace zel {

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

} // namespace zel
