#pragma once

#include <set>

#include "engine/menu/widgets/Widget.h"

namespace zel {

/// A window onto elements that may be taller than itself: the wheel over it and dragging move them
/// up and down, and so does the keyboard (see MenuFocus). A press that drags hits none of them. The
/// elements of a menu whose names begin with the area's name and a point, as "list.row1" for
/// "list", belong to it; they are clipped at its edges.
class ScrollingArea : public Widget {
public:
    explicit ScrollingArea(const String& name) : Widget(name) {}

    /// Also scrolls to the beginning.
    void reset() override;
    void handlePointer(const Pointer& pointer) override;
    /// Only an area that is a tab stop can, while it has more than it shows; otherwise only its
    /// rows can.
    bool canFocus() const override { return tabStop && isActive() && isVisible() && furthest > 0; }
    /// Makes the area a tab stop, so that keys can scroll it: for one of several whose rows can't
    /// be pressed.
    void setTabStop(bool isTabStop) { tabStop = isTabStop; }

    /// How far the elements have moved up, in design pixels; 0 shows their beginning.
    int32_t getOffset() const { return offset; }
    /// Clamped to 0 and the offset that shows the last element's end.
    void setOffset(int32_t newOffset);
    void scrollBy(int32_t distance) { setOffset(offset + distance); }
    void scrollToStart() { setOffset(0); }
    void scrollToEnd() { setOffset(furthest); }
    /// Scrolls as little as needed to show the whole element, given at offset 0, or the top of one
    /// that is taller than the area.
    void show(const PixelRect& element);
    /// Whether the whole element, given at offset 0, is in view.
    bool isWhollyShown(const PixelRect& element) const;
    /// Whether a press drags its elements, or did so up to this frame.
    bool isDragged() const { return dragged; }
    /// Counts an element by its rectangle at rest; the lowest one limits the scrolling.
    void addElement(const PixelRect& element);
    /// Removes an element that addElement() counted.
    void removeElement(const PixelRect& element);

private:
    void takePress(const Pointer& pointer, bool isInside);
    void drag(const Pointer& pointer);
    void updateFurthest();

    std::multiset<int32_t> bottoms; // lower edges of the elements at offset 0
    int32_t offset = 0;
    int32_t furthest = 0; // offset at which the last element ends at the lower edge
    bool tabStop = false;
    bool pressed = false;        // the button went down inside and still is
    bool pressedOutside = false; // it went down outside and still is
    bool dragged = false;
    int32_t pressY = 0, offsetAtPress = 0;
};

} // namespace zel
