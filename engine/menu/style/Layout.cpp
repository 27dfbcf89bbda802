#include "engine/menu/style/Layout.h"

namespace zel {

namespace {

/// The point of a length that the bits name: its start, its middle or its end.
int32_t pointOf(int32_t bits, int32_t middleBit, int32_t endBit, int32_t length) {
    if ((bits & middleBit) != 0)
        return length / 2;
    return (bits & endBit) != 0 ? length : 0;
}

} // namespace

PixelRect ElementDefinition::restingRect() const {
    PixelRect result = rect;
    result.x += pointOf(origin, AlignHCenter, AlignRight, DesignWidth) -
                pointOf(handle, AlignHCenter, AlignRight, rect.width);
    result.y += pointOf(origin, AlignVCenter, AlignBottom, DesignHeight) -
                pointOf(handle, AlignVCenter, AlignBottom, rect.height);
    return result;
}

} // namespace zel
