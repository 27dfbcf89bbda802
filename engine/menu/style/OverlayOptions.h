#pragma once

#include "engine/core/String.h"
#include "engine/menu/style/Layout.h"

namespace zel {

/// How an overlay's picture fills the design.
struct OverlayOptions {
    bool keepsAspect = true;       // otherwise stretched to the design's size
    bool scalesInIntegers = false; // only whole factors, 1 at least
    bool isOversized = false;      // covers the design; what stands out is cut

    /// Takes an option's word; false if there is no such word.
    bool take(std::string_view word);
    /// Distinguishes the options in an overlay's identifier.
    String key() const;
    /// Where a picture of that size is drawn, centred on the design.
    PixelRect placeOf(int32_t width, int32_t height) const;
};

} // namespace zel
