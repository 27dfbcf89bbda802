#pragma once

#include <vector>

#include "engine/menu/MenuOverlay.h"
#include "engine/menu/style/OverlayOptions.h"

namespace zel {

class Image;
class Widget;

/// The overlay of scripts and themes: an image, drawn by its options, with widgets on it.
class StandardMenuOverlay : public MenuOverlay {
public:
    StandardMenuOverlay(const String& identifier, const Image& image,
                        const OverlayOptions& options);
    ~StandardMenuOverlay() override;

    void update() override {}
    void handlePointer(const Pointer& pointer) override;
    void render() override;
    void reset() override;
    /// Adds a widget that is drawn over the image.
    void addWidget(std::unique_ptr<Widget> widget);

    /// The overlay of that image with those options, made if need be. On error: null, and the image
    /// handler's log line.
    static MenuOverlay* of(const String& imageName, const OverlayOptions& options);

private:
    const Image& image;
    OverlayOptions options;
    std::vector<std::unique_ptr<Widget>> widgets;
};

} // namespace zel
