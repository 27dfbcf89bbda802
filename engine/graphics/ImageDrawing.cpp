// Apart from the rest of the image, so that whatever only asks for images links no OpenGL.
#include "engine/graphics/Image.h"

namespace zel {

void Image::draw(Canvas& canvas, float x, float y, int32_t frame, uint32_t argb) const {
    canvas.draw(*bitmap, quad(x, y, frame).corners, argb);
}

void Image::drawInto(Canvas& canvas, const Rect& target, int32_t frame, uint32_t argb) const {
    const FrameRect rect = frameRect(frame);
    const Rect source = {static_cast<float>(rect.x), static_cast<float>(rect.y),
                         static_cast<float>(rect.width), static_cast<float>(rect.height)};
    canvas.draw(*bitmap, source, target, argb);
}

} // namespace zel
