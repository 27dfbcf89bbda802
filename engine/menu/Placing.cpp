#include "engine/menu/Placing.h"

#include <cmath>

#include "engine/menu/ScrollingArea.h"

namespace zel {

void Placing::stand(int32_t contentPhase, float progress) {
    const Scroll& scroll = contentPhase == 0 ? scrollIn : scrollOut;
    const float away = 1.0F - progress;
    const Place now = placeNow();
    drawX = now.x + static_cast<int32_t>(std::lround(static_cast<float>(scroll.x) * away));
    drawY = now.y + static_cast<int32_t>(std::lround(static_cast<float>(scroll.y) * away));
}

Place Placing::placeNow() const {
    Place now = place;
    if (area != nullptr)
        now.y -= area->getOffset();
    return now;
}

bool Placing::isShownAt(int32_t x, int32_t y) const {
    return area == nullptr || isWithin(area->getPlacing().place, x, y);
}

} // namespace zel
