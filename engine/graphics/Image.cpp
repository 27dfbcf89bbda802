#include "engine/graphics/Image.h"

#include <algorithm>
#include <cmath>

namespace zel {

namespace {

constexpr float RadiansPerDegree = 3.14159265F / 180;

Point transformed(Point point, const FrameTransform& by) {
    return {by.a * point.x + by.b * point.y + by.tx, by.c * point.x + by.d * point.y + by.ty};
}

} // namespace

FrameRect Image::frameRect(int32_t frame) const {
    const int32_t place = std::clamp(frame, 0, frameCount() - 1);
    const FrameRect& rect = description.frames[place];
    return rect == WholeBitmap ? FrameRect{0, 0, bitmap->width(), bitmap->height()} : rect;
}

float Image::width(int32_t frame) const {
    return std::abs(static_cast<float>(frameRect(frame).width) / pixelsPerUnit() *
                    description.scaleX);
}

float Image::height(int32_t frame) const {
    return std::abs(static_cast<float>(frameRect(frame).height) / pixelsPerUnit() *
                    description.scaleY);
}

float Image::pixelsPerUnit() const {
    return description.imageScale != 0 ? description.imageScale : 1;
}

ImageQuad Image::quadInto(const Rect& target, int32_t frame) const {
    const FrameRect rect = frameRect(frame);
    const auto left = static_cast<float>(rect.x);
    const auto top = static_cast<float>(rect.y);
    const auto right = static_cast<float>(rect.x + rect.width);
    const auto bottom = static_cast<float>(rect.y + rect.height);
    return {{{target.x, target.y, left, top},
             {target.right(), target.y, right, top},
             {target.right(), target.bottom(), right, bottom},
             {target.x, target.bottom(), left, bottom}}};
}

ImageQuad Image::quad(float x, float y, int32_t frame) const {
    const FrameRect rect = frameRect(frame);
    const Rect resting = {-description.handleX, -description.handleY,
                          static_cast<float>(std::abs(rect.width)) / pixelsPerUnit(),
                          static_cast<float>(std::abs(rect.height)) / pixelsPerUnit()};
    ImageQuad result = quadInto(resting, frame);
    const auto place = static_cast<size_t>(std::clamp(frame, 0, frameCount() - 1));
    const FrameTransform frameTransform =
        place < description.transforms.size() ? description.transforms[place] : FrameTransform();
    const float angle = description.rotation * RadiansPerDegree;
    const FrameTransform placing = {true,
                                    x + description.positionX,
                                    y + description.positionY,
                                    std::cos(angle) * description.scaleX,
                                    -std::sin(angle) * description.scaleY,
                                    std::sin(angle) * description.scaleX,
                                    std::cos(angle) * description.scaleY};
    for (Corner& corner : result.corners) {
        const Point point = transformed(transformed({corner.x, corner.y}, frameTransform), placing);
        corner.x = point.x;
        corner.y = point.y;
    }
    return result;
}

void Image::draw(Canvas& canvas, float x, float y, int32_t frame, uint32_t argb) const {
    canvas.draw(*bitmap, quad(x, y, frame).corners, argb);
}

void Image::drawInto(Canvas& canvas, const Rect& target, int32_t frame, uint32_t argb) const {
    const FrameRect rect = frameRect(frame);
    const Rect source = {static_cast<float>(rect.x), static_cast<float>(rect.y),
                         static_cast<float>(rect.width), static_cast<float>(rect.height)};
    canvas.draw(*bitmap, source, target, argb);
}

const AnimationEntry* ImageGroup::animation(std::string_view name) const {
    const auto& entries = description.animations;
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [name](const auto& entry) { return entry.name == name; });
    return found != entries.end() ? &*found : nullptr;
}

} // namespace zel
