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

bool BitmapReader::acceptSize(int64_t newWidth, int64_t newHeight) {
    const auto size = [&] {
        return std::to_string(newWidth) + " by " + std::to_string(newHeight) + " pixels";
    };
    if (newWidth < 1 || newHeight < 1)
        fault = "empty: " + size();
    else if (newWidth > MaxPictureSide || newHeight > MaxPictureSide)
        fault = "too large: " + size() + ", at most " + String(MaxPictureSide) + " by " +
                MaxPictureSide;
    if (!fault.empty())
        return false;
    width = static_cast<int32_t>(newWidth);
    height = static_cast<int32_t>(newHeight);
    return true;
}

} // namespace zel
