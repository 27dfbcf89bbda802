#include "app/screens/MadePicture.h"

#include "engine/graphics/ImageHandler.h"
#include "engine/menu/Menu.h"
#include "engine/menu/widgets/Widget.h"

namespace {

constexpr int32_t Depth = 4; // bytes a pixel

const zel::Image* imageOf(const zel::String& name) {
    return zel::ImageHandler::getInstance().getImage(name);
}

uint32_t pixelOf(const zel::Image& image, int32_t x, int32_t y) {
    const zel::FrameRect rect = image.frameRect();
    return image.getBitmap().pixelAt(rect.x + x, rect.y + y);
}

uint32_t channel(uint32_t argb, int32_t shift) { return (argb >> shift) & 0xFF; }

} // namespace

void MadePicture::begin(int32_t width, int32_t height) {
    data = {};
    data.width = data.pictureWidth = width;
    data.height = data.pictureHeight = height;
    data.depth = Depth;
    data.pixels.assign(size_t(width) * size_t(height) * Depth, 0);
}

void MadePicture::begin(const char* name) {
    const zel::Image* source = imageOf(name);
    if (source == nullptr)
        return begin(0, 0);
    begin(source->frameRect().width, source->frameRect().height);
    draw(name, 0, 0);
}

void MadePicture::draw(const zel::String& name, int32_t x, int32_t y) {
    const zel::Image* source = imageOf(name);
    if (source == nullptr)
        return;
    const zel::FrameRect rect = source->frameRect();
    for (int32_t row = 0; row < rect.height; ++row)
        for (int32_t column = 0; column < rect.width; ++column)
            blend(x + column, y + row, pixelOf(*source, column, row));
}

void MadePicture::drawColumns(const char* name, int32_t from, int32_t until) {
    const zel::Image* source = imageOf(name);
    if (source == nullptr)
        return;
    for (int32_t row = 0; row < height(); ++row)
        for (int32_t column = from; column < until; ++column)
            blend(column, row, pixelOf(*source, column, row));
}

void MadePicture::drawColumn(int32_t x, int32_t top, int32_t height, uint32_t colour, float alpha) {
    const uint32_t argb = (uint32_t(alpha * 255) << 24) | colour;
    for (int32_t row = 0; row < height; ++row)
        blend(x, top + row, argb);
}

void MadePicture::blend(int32_t x, int32_t y, uint32_t argb) {
    const uint32_t above = channel(argb, 24);
    if (above == 0 || x < 0 || y < 0 || x >= width() || y >= height())
        return;
    uint8_t* pixel = data.line(y) + size_t(x) * Depth;
    const uint32_t below = pixel[3] * (255 - above) / 255;
    const uint32_t sum = above + below;
    for (int32_t i = 0; i < 3; ++i)
        pixel[i] = uint8_t((channel(argb, 16 - 8 * i) * above + pixel[i] * below) / sum);
    pixel[3] = uint8_t(sum);
}

void MadePicture::show(const zel::Menu& menu, const char* name) {
    zel::Widget* widget = menu.getWidget(name);
    if (widget == nullptr || width() == 0)
        return;
    if (!bitmap.assign(data, name))
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
