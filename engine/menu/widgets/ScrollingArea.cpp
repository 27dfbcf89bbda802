#include "engine/menu/widgets/ScrollingArea.h"

#include <algorithm>
#include <cstdlib>

namespace zel {

namespace {

// In design pixels.
constexpr int32_t WheelStep = 48;
constexpr int32_t DragDistance = 8; // up to this a press is meant for the element under it

int32_t bottomOf(const PixelRect& rect) { return rect.y + rect.height; }

} // namespace

void ScrollingArea::reset() {
    Widget::reset();
    setOffset(0);
    pressed = dragged = false;
}

// It isn't a button: a press inside starts dragging, a release hits nothing.
void ScrollingArea::handlePointer(const Pointer& pointer) {
    if (!isActive() || !isVisible()) {
        pressed = dragged = false;
        return;
    }
    const bool isInside = isWithin(bounds.rect, pointer.x, pointer.y);
    if (isInside)
        setOffset(offset - pointer.wheel * WheelStep);
    if (pressed)
        drag(pointer);
    else
        takePress(pointer, isInside);
}

void ScrollingArea::takePress(const Pointer& pointer, bool isInside) {
    dragged = false;
    pressed = pointer.isDown && isInside && !pressedOutside;
    pressedOutside = pointer.isDown && !pressed;
    pressY = pointer.y;
    offsetAtPress = offset;
}

// The frame of the release counts as well: the pointer may have moved in it.
void ScrollingArea::drag(const Pointer& pointer) {
    dragged = dragged || std::abs(pointer.y - pressY) > DragDistance;
    if (dragged)
        setOffset(offsetAtPress + pressY - pointer.y);
    pressed = pointer.isDown;
}

void ScrollingArea::setOffset(int32_t newOffset) { offset = std::clamp(newOffset, 0, furthest); }

void ScrollingArea::show(const PixelRect& element) {
    const int32_t highest = bottomOf(element) - bottomOf(bounds.rect); // offsets between which
    const int32_t lowest = element.y - bounds.rect.y;                  // all of it is shown
    setOffset(std::min(std::max(offset, highest), lowest));
}

bool ScrollingArea::isWhollyShown(const PixelRect& element) const {
    return element.y - offset >= bounds.rect.y &&
           bottomOf(element) - offset <= bottomOf(bounds.rect);
}

void ScrollingArea::addElement(const PixelRect& element) {
    bottoms.insert(bottomOf(element));
    updateFurthest();
}

void ScrollingArea::removeElement(const PixelRect& element) {
    const auto found = bottoms.find(bottomOf(element));
    if (found != bottoms.end())
        bottoms.erase(found);
    updateFurthest();
}

void ScrollingArea::updateFurthest() {
    furthest = bottoms.empty() ? 0 : std::max(0, *bottoms.rbegin() - bottomOf(bounds.rect));
    setOffset(offset);
}

} // namespace zel
