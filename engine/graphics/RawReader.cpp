#include "engine/graphics/RawReader.h"

namespace zel {

namespace {

/// Whether the file has that many bytes from that offset on.
bool fits(const File& file, uint32_t offset, int64_t count) {
    return offset + count <= file.fileSize();
}

} // namespace

bool RawReader::readRows(BitmapData& data, int32_t padding, bool topDown) {
    const int32_t rowBytes = width * depth;
    const int64_t size = (int64_t(rowBytes) + padding) * height - padding;
    if (!fits(*file, pixelOffset, size) || !file->seek(static_cast<int32_t>(pixelOffset), 0))
        return false;
    data.allocate(width, height, depth, powerOfTwo);
    data.order = ChannelOrder::Bgr;
    const bool isStoredAlike =
        padding == 0 && !topDown && data.width == width && data.height == height;
    if (isStoredAlike)
        return file->read(data.pixels.data(), rowBytes * height);
    char unused[3];
    for (int32_t row = 0; row < height; ++row) {
        file->read(data.line(topDown ? row : height - 1 - row), rowBytes);
        if (padding > 0 && row + 1 < height)
            file->read(unused, padding);
    }
    return !file->hasFailed();
}

} // namespace zel
