#pragma once

#include <vector>

#include "engine/graphics/Bitmap.h"
#include "engine/graphics/Canvas.h"
#include "engine/graphics/ImageIndex.h"

namespace zel {

/// The corners of a frame on the canvas: top left, top right, bottom right, bottom left.
struct ImageQuad {
    Corner corners[4];
};

/// A named picture: one or more frames of a bitmap, with the properties from the index file.
///
/// Owned by the image handler; its address is valid until the handler is cleared.
class Image {
public:
    /// The bitmap must outlive the image.
    Image(const Bitmap& bitmap, const ImageDescription& description)
        : bitmap(&bitmap), description(description) {}
    virtual ~Image() = default;

    const String& getName() const { return description.name; }
    const Bitmap& getBitmap() const { return *bitmap; }
    const ImageDescription& getDescription() const { return description; }
    int32_t frameCount() const { return static_cast<int32_t>(description.frames.size()); }
    /// The rectangle of a frame; the mark of the whole bitmap is resolved. An index out of range
    /// means the nearest frame, here and below.
    FrameRect frameRect(int32_t frame = 0) const;
    /// Size as drawn, in pixels of the canvas, before rotation and transform; never negative.
    float width(int32_t frame = 0) const;
    float height(int32_t frame = 0) const;

    /// The frame with the image's handle at x, y: scaled, transformed, turned.
    ImageQuad quad(float x, float y, int32_t frame = 0) const;
    /// The frame stretched into a rectangle; handle, position, scale and rotation are ignored.
    ImageQuad quadInto(const Rect& target, int32_t frame = 0) const;

    /// Draw these. argb tints; FFFFFFFF leaves the colours as they are.
    void draw(Canvas& canvas, float x, float y, int32_t frame = 0,
              uint32_t argb = 0xFFFFFFFF) const;
    void drawInto(Canvas& canvas, const Rect& target, int32_t frame = 0,
                  uint32_t argb = 0xFFFFFFFF) const;

private:
    float pixelsPerUnit() const;

    const Bitmap* bitmap;
    ImageDescription description;
};

/// Images by one name: either the members of a group line, or all images that joined a group.
class ImageGroup {
public:
    virtual ~ImageGroup() = default;

    const String& getName() const { return description.name; }
    const std::vector<const Image*>& getImages() const { return images; }
    /// Null if there is none of that name.
    const AnimationEntry* animation(std::string_view name) const;

private:
    friend class ImageHandler;
    GroupDescription description;
    std::vector<const Image*> images; // members that exist, in the order of the line
};

} // namespace zel
