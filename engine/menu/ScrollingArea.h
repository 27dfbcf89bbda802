#pragma once

#include "engine/menu/Widget.h"

namespace zel {

/// A window onto elements that may be taller than itself: the wheel over it and dragging move them
/// up and down. The elements of a menu whose names begin with the area's name and a point, as
/// "list.row1" for "list", belong to it; they are cut at its edges.
class ScrollingArea : public Widget {
public:
    explicit ScrollingArea(const String& name) : Widget(name) {}

    void look(const Pointer& pointer) override;
    bool takeKey(const Key& key) override; // page up and down, while it has the focus

    /// How far the elements have moved up, in design pixels; 0 shows their beginning.
    int32_t getOffset() const { return offset; }
    void setOffset(int32_t newOffset);
    /// The lower edge of the lowest element, at offset 0.
    void setContentBottom(int32_t bottom);

private:
    int32_t offset = 0;
    int32_t furthest = 0; // offset at which the last element ends at the lower edge
    bool dragged = false;
    int32_t dragStartY = 0, dragStartOffset = 0;
};

} // namespace zel
