#include "engine/menu/style/Bounds.h"

#include <algorithm>
#include <cmath>

#include "engine/menu/widgets/ScrollingArea.h"

namespace zel {

void Bounds::moveTo(int32_t contentPhase, float progress) {
    const Scroll& scroll = contentPhase == 0 ? scrollIn : scrollOut;
    const float away = 1.0F - progress;
    const PixelRect now = currentRect();
    drawX = now.x + static_cast<int32_t>(std::lround(static_cast<float>(scroll.x) * away));
    drawY = now.y + static_cast<int32_t>(std::lround(static_cast<float>(scroll.y) * away));
}

PixelRect Bounds::currentRect() const {
    PixelRect now = rect;
    if (area != nullptr)
        now.y -= area->getOffset();
    return now;
}

PixelRect Bounds::shownRect() const {
    const PixelRect now = currentRect();
    if (area == nullptr)
        return now;
    const PixelRect& clip = area->getBounds().rect;
    const int32_t left = std::max(now.x, clip.x);
    const int32_t top = std::max(now.y, clip.y);
    const int32_t right = std::min(now.x + now.width, clip.x + clip.width);
    const int32_t bottom = std::min(now.y + now.height, clip.y + clip.height);
    return {left, top, std::max(0, right - left), std::max(0, bottom - top)};
}

} // namespace zel
