#include "engine/menu/StandardMenuOverlay.h"

#include <cmath>

#include "engine/graphics/Canvas.h"
#include "engine/graphics/ImageHandler.h"
#include "engine/menu/widgets/Widget.h"

namespace zel {

StandardMenuOverlay::StandardMenuOverlay(const String& identifier, const Image& image,
                                         const OverlayOptions& options)
    : MenuOverlay(identifier), image(image), options(options) {}

StandardMenuOverlay::~StandardMenuOverlay() = default;

MenuOverlay* StandardMenuOverlay::of(const String& imageName, const OverlayOptions& options) {
    const String identifier = imageName + "|" + options.key();
    if (MenuOverlay* known = find(identifier))
        return known;
    const Image* image = ImageHandler::getInstance().getImage(imageName);
    if (image == nullptr)
        return nullptr;
    return add(std::make_unique<StandardMenuOverlay>(identifier, *image, options));
}

void StandardMenuOverlay::handlePointer(const Pointer& pointer) {
    for (const std::unique_ptr<Widget>& widget : widgets)
        widget->handlePointer(pointer);
}

void StandardMenuOverlay::reset() {
    for (const std::unique_ptr<Widget>& widget : widgets)
        widget->reset();
}

void StandardMenuOverlay::render() {
    const auto width = static_cast<int32_t>(std::lround(image.width()));
    const auto height = static_cast<int32_t>(std::lround(image.height()));
    image.drawInto(Canvas::getInstance(), rectOf(options.pictureRect(width, height)));
    for (const std::unique_ptr<Widget>& widget : widgets)
        widget->render();
}

void StandardMenuOverlay::addWidget(std::unique_ptr<Widget> widget) {
    widgets.push_back(std::move(widget));
}

} // namespace zel
