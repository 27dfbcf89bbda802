#include "app/screens/MadePicture.h"

#include <algorithm>
#include <cstddef>

#include "engine/graphics/ImageHandler.h"
#include "engine/menu/Menu.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr int32_t Depth = 4; // bytes a pixel

const zel::Image* imageOf(const zel::String& name) {
    return zel::ImageHandler::getInstance().getImage(name);
}

uint32_t channel(uint32_t argb, int32_t shift) { return (argb >> shift) & 0xFF; }

/// x, y: pixels of the picture.
void blend(zel::BitmapData& picture, int32_t x, int32_t y, uint32_t argb) {
    const uint32_t above = channel(argb, 24);
    if (above == 0 || x < 0 || y < 0 || x >= picture.pictureWidth || y >= picture.pictureHeight)
        return;
    uint8_t* pixel = picture.line(y) + std::ptrdiff_t{x} * Depth;
    const uint32_t below = pixel[3] * (255 - above) / 255;
    const uint32_t sum = above + below;
    for (int32_t i = 0; i < 3; ++i)
        pixel[i] = uint8_t((channel(argb, 16 - 8 * i) * above + pixel[i] * below) / sum);
    pixel[3] = uint8_t(sum);
}

/// Draws the part of an image's frame that is in the rectangle, which like x and y is in pixels of
/// the design; the image may have another detail than the picture.
void blendPart(zel::BitmapData& picture, const zel::String& name, const zel::FrameRect& part,
               int32_t x, int32_t y) {
    const zel::Image* source = imageOf(name);
    if (source == nullptr)
        return;
    const zel::Bitmap& bitmap = source->getBitmap();
    bitmap.refresh();
    const zel::FrameRect frame = source->frameRect();
    const int32_t ours = picture.detail;
    const int32_t theirs = bitmap.getData().detail;
    const int32_t right = std::min(part.x + part.width, frame.width) * ours;
    const int32_t bottom = std::min(part.y + part.height, frame.height) * ours;
    for (int32_t row = part.y * ours; row < bottom; ++row)
        for (int32_t column = part.x * ours; column < right; ++column)
            blend(picture, x * ours + column, y * ours + row,
                  bitmap.pixelAt(frame.x * theirs + column * theirs / ours,
                                 frame.y * theirs + row * theirs / ours));
}

} // namespace

void MadePicture::begin(int32_t width, int32_t height) {
    size = {width, height};
    steps.clear();
    maker = nullptr;
}

void MadePicture::begin(const char* name) {
    const zel::Image* source = imageOf(name);
    if (source == nullptr)
        return begin(0, 0);
    begin(source->frameRect().width, source->frameRect().height);
    draw(name, 0, 0);
}

void MadePicture::draw(const zel::String& name, int32_t x, int32_t y) {
    if (const zel::Image* source = imageOf(name))
        steps.emplace_back([name, whole = source->frameRect(), x, y](zel::BitmapData& picture) {
            blendPart(picture, name, {0, 0, whole.width, whole.height}, x, y);
        });
}

void MadePicture::drawColumns(const char* name, int32_t from, int32_t until) {
    const zel::FrameRect part{from, 0, until - from, height()};
    steps.emplace_back([name = zel::String(name), part](zel::BitmapData& picture) {
        blendPart(picture, name, part, 0, 0);
    });
}

void MadePicture::drawColumn(int32_t x, int32_t top, int32_t height, uint32_t colour, float alpha) {
    const uint32_t argb = (uint32_t(alpha * 255) << 24) | colour;
    steps.emplace_back([=](zel::BitmapData& picture) {
        for (int32_t row = top * picture.detail; row < (top + height) * picture.detail; ++row)
            for (int32_t column = 0; column < picture.detail; ++column)
                blend(picture, x * picture.detail + column, row, argb);
    });
}

zel::BitmapData MadePicture::made(Size size, int32_t detail, const std::vector<Step>& steps) {
    zel::BitmapData picture;
    picture.detail = detail;
    // Old graphics cards show no other detail.
    picture.allocate(size.width * detail, size.height * detail, Depth, detail == 1);
    for (const Step& step : steps)
        step(picture);
    return picture;
}

void MadePicture::show(const zel::Menu& menu, const char* name) {
    zel::Widget* widget = menu.getWidget(name);
    if (widget == nullptr || (maker == nullptr && width() == 0))
        return;
    const auto making = [size = size, steps = steps](int32_t detail) {
        return made(size, detail, steps);
    };
    if (!bitmap.assign(maker != nullptr ? maker : zel::Bitmap::PixelSource(making), name))
        return;
    if (image == nullptr) {
        zel::ImageDescription description;
        description.name = name;
        description.frames = {zel::WholeBitmap};
        image = std::make_unique<zel::Image>(bitmap, description);
    }
    for (int32_t look = 0; look < zel::LookCount; ++look)
        widget->setImage(static_cast<zel::WidgetLook>(look), image.get());
}
