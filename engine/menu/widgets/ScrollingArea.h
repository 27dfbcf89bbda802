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

    /// Shows the beginning again, too.
    void reset() override;
    void handlePointer(const Pointer& pointer) override;
    bool canFocus() const override { return false; } // its rows are what the keyboard goes to

    /// How far the elements have moved up, in design pixels; 0 shows their beginning.
    int32_t getOffset() const { return offset; }
    /// Held between 0 and the offset that shows the last element's end.
    void setOffset(int32_t newOffset);
    void scrollBy(int32_t distance) { setOffset(offset + distance); }
    void scrollToStart() { setOffset(0); }
    void scrollToEnd() { setOffset(furthest); }
    /// Scrolls as little as it takes to show the element, given at offset 0, as a whole; of one
    /// that is taller than the area its upper end.
    void show(const PixelRect& element);
    /// Whether all of the element, given at offset 0, can be seen now.
    bool isWhollyShown(const PixelRect& element) const;
    /// A press in it moves its elements now, or did until this very look.
    bool isDragged() const { return dragged; }
    /// Counts an element by where it rests; the lowest one decides how far the area scrolls.
    void addElement(const PixelRect& element);
    /// Takes what addElement() was given.
    void removeElement(const PixelRect& element);

private:
    void takePress(const Pointer& pointer, bool isInside);
    void drag(const Pointer& pointer);
    void updateFurthest();

    std::multiset<int32_t> bottoms; // lower edges of the elements at offset 0
    int32_t offset = 0;
    int32_t furthest = 0;        // offset at which the last element ends at the lower edge
    bool pressed = false;        // the button went down inside and still is
    bool pressedOutside = false; // it went down outside and still is
    bool dragged = false;
    int32_t pressY = 0, offsetAtPress = 0;
};

} // namespace zel
