#pragma once

#include <set>

#include "engine/menu/widgets/Widget.h"

namespace zel {

/// A window onto elements that may be taller than itself: the wheel over it and dragging move them
/// up and down. A press that drags hits none of them. The elements of a menu whose names begin with
/// the area's name and a point, as "list.row1" for "list", belong to it; they are cut at its edges.
class ScrollingArea : public Widget {
public:
    explicit ScrollingArea(const String& name) : Widget(name) {}

    /// Shows the beginning again, too.
    void reset() override;
    void handlePointer(const Pointer& pointer) override;
    bool takeKey(const Key& key) override; // page up and down, while it has the focus

    /// How far the elements have moved up, in design pixels; 0 shows their beginning.
    int32_t getOffset() const { return offset; }
    void setOffset(int32_t newOffset);
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
