#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "engine/graphics/Bitmap.h"
#include "engine/graphics/Image.h"

namespace zel {
class Menu;
}

/// A picture that is put together from images while the program runs, and shown by a widget. Places
/// are pixels of the design from the upper left. Images that don't exist, and anything beyond the
/// edge, draw nothing.
///
/// It remembers what was drawn: the picture is made when it is shown, and again when the window
/// wants another detail.
class MadePicture {
public:
    /// Begins a clear picture.
    void begin(int32_t width, int32_t height);
    /// Begins a copy of the image of that name; a clear picture of no size without it.
    void begin(const char* name);
    /// Takes a picture that is made elsewhere.
    void take(zel::Bitmap::PixelSource made) { maker = std::move(made); }
    void draw(const zel::String& name, int32_t x, int32_t y);
    /// Draws the columns of an image of the same size, from one up to another.
    void drawColumns(const char* name, int32_t from, int32_t until);
    /// Draws a line one pixel wide. colour: RGB; alpha: 0 to 1.
    void drawColumn(int32_t x, int32_t top, int32_t height, uint32_t colour, float alpha);
    /// Gives the picture to the widget, for all its looks. The widget must not outlive this.
    void show(const zel::Menu& menu, const char* name);

    int32_t width() const { return size.width; }
    int32_t height() const { return size.height; }

private:
    struct Size {
        int32_t width = 0;
        int32_t height = 0;
    };
    using Step = std::function<void(zel::BitmapData& picture)>;

    static zel::BitmapData made(Size size, int32_t detail, const std::vector<Step>& steps);

    Size size;
    std::vector<Step> steps;
    zel::Bitmap::PixelSource maker; // null: the steps make it
    zel::Bitmap bitmap;
    std::unique_ptr<zel::Image> image;
};
