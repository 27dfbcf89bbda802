#pragma once

#include "engine/graphics/BitmapReader.h"

namespace zel {

/// Reads pictures whose rows are stored as they are, blue first: the header gives offset and size.
class RawReader : public BitmapReader {
public:
    using BitmapReader::BitmapReader;

protected:
    /// Whether pictures of that many bits a pixel are read: 24 and 32.
    static bool isDepth(int32_t bits) { return bits == 24 || bits == 32; }
    /// padding: bytes after each row; those after the last one may be missing.
    bool readRows(BitmapData& data, int32_t padding, bool topDown);

    uint32_t pixelOffset = 0; // bytes before the first row
    int32_t depth = 0;        // bytes a pixel
};

} // namespace zel
