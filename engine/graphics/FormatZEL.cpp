#include "engine/graphics/FormatZEL.h"

#include "engine/core/Log.h"
#include "engine/graphics/ByteReader.h"

namespace zel {

namespace {

constexpr int32_t ZelHeaderSize = 16; // bytes

} // namespace

bool FormatZEL::checkHeader() {
    char bytes[ZelHeaderSize] = {};
    const bool isLongEnough = file->read(bytes, sizeof bytes);
    ByteReader header({bytes, sizeof bytes});
    if (!isLongEnough || header.bytes(2) != "ZG") {
        log("Not a ZEL graphics file", "FormatZEL", LogDebug);
        return false;
    }
    pixelOffset = header.u32();
    const int32_t pictureWidth = header.u16();
    const int32_t pictureHeight = header.u16();
    const int32_t bits = header.u16();
    if (!isDepth(bits)) {
        log("ZEL depth unsupported", "FormatZEL", LogWarning);
        return false;
    }
    depth = bits / 8;
    return acceptSize(pictureWidth, pictureHeight);
}

} // namespace zel
