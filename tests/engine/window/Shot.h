#pragma once

#include <vector>

#include "engine/graphics/Canvas.h"
#include "engine/window/Window.h"

/// The window's picture so far.
class Shot {
public:
    Shot()
        : pixels(zel::Canvas::getInstance().readPixels()),
          width(static_cast<size_t>(zel::Window::current()->getRealWidth())) {}
    /// ARGB of a window pixel, y down.
    uint32_t at(size_t x, size_t y) const {
        const uint8_t* pixel = &pixels.at((y * width + x) * 3);
        return 0xFF000000 | uint32_t(pixel[0]) << 16 | uint32_t(pixel[1]) << 8 | pixel[2];
    }
    int32_t red(size_t x, size_t y) const { return at(x, y) >> 16 & 0xFF; }

private:
    std::vector<uint8_t> pixels;
    size_t width;
};
