#include <cmath>
#include <cstdlib>

#include "engine/graphics/Image.h"
#include "fuzz/FuzzFile.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const zel::Bitmap bitmap;
    const zel::ImageIndex index =
        zel::parseImageIndex(asText(data, size), zel::LifetimeShort, 1.5F);
    size_t transforms = 0;
    for (const zel::ImageDescription& image : index.images) {
        require(!image.name.empty() && !image.frames.empty(), "an image has a name and a frame");
        require(image.lifetime >= zel::LifetimeShort && image.lifetime <= zel::LifetimePersistent,
                "a lifetime");
        for (const zel::FrameRect& frame : image.frames)
            require(std::abs(frame.x) <= 65536 && std::abs(frame.y) <= 65536 &&
                        std::abs(frame.width) <= 32768 && std::abs(frame.height) <= 32768,
                    "a rectangle in bounds");
        require(std::isfinite(image.scaleX) && std::isfinite(image.rotation) &&
                    std::isfinite(image.imageScale),
                "finite numbers");
        transforms += image.transforms.size();
        const zel::Image drawn(bitmap, image);
        for (int32_t frame = -1; frame <= drawn.frameCount(); ++frame)
            drawn.quad(0, 0, frame);
    }
    for (const zel::GroupDescription& group : index.groups) {
        require(!group.name.empty(), "a group has a name");
        transforms += group.transforms.size();
    }
    require(transforms <= 65536, "a small file makes no large lists");
    return 0;
}
