#include "engine/graphics/StbImage.h"

#include <cstdlib>
#include <limits>

#include "engine/graphics/Bitmap.h"

namespace {

// The decoder expects a constant. While only a header is read, any size may be reported.
uint32_t longestSide = zel::MaxPictureSide;

} // namespace

#define STBI_NO_STDIO
#define STBI_NO_LINEAR
#define STBI_MAX_DIMENSIONS longestSide
// Cleared: a damaged file makes the decoder use tables that it never filled.
#define STBI_MALLOC(size) std::calloc(1, size)
#define STBI_REALLOC(block, size) std::realloc(block, size)
#define STBI_FREE(block) std::free(block)
// A damaged file must not end the program, whatever the build.
#define STBI_ASSERT(holds) static_cast<void>(0)
#define STB_IMAGE_IMPLEMENTATION
#include <stb_image.h>

namespace zel {

namespace {

const stbi_uc* bytesOf(std::string_view content) {
    return reinterpret_cast<const stbi_uc*>(content.data());
}

int sizeOf(std::string_view content) { return static_cast<int>(content.size()); }

} // namespace

bool readStbInfo(std::string_view content, StbInfo& info) {
    longestSide = std::numeric_limits<int32_t>::max();
    const bool isKnown = stbi_info_from_memory(bytesOf(content), sizeOf(content), &info.width,
                                               &info.height, &info.channels) != 0;
    longestSide = MaxPictureSide;
    return isKnown;
}

void StbRelease::operator()(uint8_t* pixels) const { stbi_image_free(pixels); }

StbPixels decodeWithStb(std::string_view content, StbInfo& info) {
    return StbPixels(stbi_load_from_memory(bytesOf(content), sizeOf(content), &info.width,
                                           &info.height, &info.channels, 0));
}

} // namespace zel
