#pragma once

#include "engine/core/String.h"
#include "engine/menu/style/Layout.h"

namespace zel {

/// How an overlay's picture fills the design.
struct OverlayOptions {
    bool keepsAspect = true;       // otherwise stretched to the design's size
    bool scalesInIntegers = false; // only whole factors, 1 at least
    bool isOversized = false;      // covers the design and is clipped to it

    /// Applies an option's word; false for an unknown one.
    bool take(std::string_view word);
    /// A text that identifies the options, for an overlay's identifier.
    String key() const;
    /// The rectangle of a picture of that size, centred on the design.
    PixelRect pictureRect(int32_t width, int32_t height) const;
};

} // namespace zel
