#include "engine/menu/ScrollingArea.h"

#include <algorithm>

#include "engine/core/Mouse.h"
#include "engine/core/Platform.h"

namespace zel {

namespace {

constexpr int32_t WheelStep = 48; // design pixels

} // namespace

// It is no button: a press inside begins to drag, a release hits nothing.
void ScrollingArea::look(const Pointer& pointer) {
    if (!isActive() || !isVisible()) {
        dragged = false;
        return;
    }
    const bool isInside = isWithin(placing.place, pointer.x, pointer.y);
    if (isInside) {
        if (const int32_t steps = Mouse::takeWheel())
            setOffset(offset - steps * WheelStep);
    }
    if (!pointer.isDown) {
        dragged = false;
        return;
    }
    if (!dragged && isInside) {
        dragged = true;
        dragStartY = pointer.y;
        dragStartOffset = offset;
    }
    if (dragged)
        setOffset(dragStartOffset + dragStartY - pointer.y);
}

bool ScrollingArea::takeKey(const Key& key) {
    if (key.symbol != KeyPageUp && key.symbol != KeyPageDown)
        return false;
    setOffset(offset + (key.symbol == KeyPageDown ? 1 : -1) * placing.place.height);
    return true;
}

void ScrollingArea::setOffset(int32_t newOffset) { offset = std::clamp(newOffset, 0, furthest); }

void ScrollingArea::setContentBottom(int32_t bottom) {
    furthest = std::max(0, bottom - placing.place.y - placing.place.height);
    setOffset(offset);
}

} // namespace zel
