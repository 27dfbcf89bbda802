#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

/// The decoder of FormatANY, compiled in one place. Check zel::isSafeToDecode() first.
namespace zel {

/// Size and form of a picture.
struct StbInfo {
    int32_t width = 0, height = 0; // pixels
    int32_t channels = 0;          // bytes a pixel: grey, grey and alpha, RGB, RGBA
};

/// What the header of a picture file says, however large it claims the picture to be. False if the
/// decoder doesn't know the format.
[[nodiscard]] bool readStbInfo(std::string_view content, StbInfo& info);

/// Gives pixels back to the decoder that made them.
struct StbRelease {
    void operator()(uint8_t* pixels) const;
};
using StbPixels = std::unique_ptr<uint8_t, StbRelease>;
/// Decodes the picture: rows from the top, without padding. Null if it is damaged, or if a side is
/// longer than MaxPictureSide.
StbPixels decodeWithStb(std::string_view content, StbInfo& info);

} // namespace zel
