#include "engine/menu/style/Bounds.h"

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

bool Bounds::isShownAt(int32_t x, int32_t y) const {
    return area == nullptr || isWithin(area->getBounds().rect, x, y);
}

} // namespace zel
