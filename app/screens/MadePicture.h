#pragma once

#include <memory>
#include <utility>

#include "engine/graphics/Bitmap.h"
#include "engine/graphics/Image.h"

namespace zel {
class Menu;
}

/// A picture that is put together from images while the program runs, and shown by a widget. Places
/// are pixels from the upper left. Images that don't exist, and what is beyond the edge, draw
/// nothing.
class MadePicture {
public:
    /// Begins a clear picture.
    void begin(int32_t width, int32_t height);
    /// Begins a copy of the image of that name; a clear picture of no size without it.
    void begin(const char* name);
    /// Takes a picture that was made elsewhere.
    void take(zel::BitmapData made) { data = std::move(made); }
    void draw(const zel::String& name, int32_t x, int32_t y);
    /// The columns of an image of the same size, from one up to another.
    void drawColumns(const char* name, int32_t from, int32_t until);
    /// A line of a pixel's width. colour: RGB; alpha: 0 to 1.
    void drawColumn(int32_t x, int32_t top, int32_t height, uint32_t colour, float alpha);
    /// Gives the picture to the widget, for all its looks. The widget must not outlive this.
    void show(const zel::Menu& menu, const char* name);

    int32_t width() const { return data.pictureWidth; }
    int32_t height() const { return data.pictureHeight; }

private:
    void blend(int32_t x, int32_t y, uint32_t argb);

    zel::BitmapData data;
    zel::Bitmap bitmap;
    std::unique_ptr<zel::Image> image;
};
