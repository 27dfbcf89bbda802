#pragma once

#include <map>
#include <memory>

#include "engine/core/String.h"

namespace zel {

class ScrollingArea;
class TextArea;
class Widget;
struct Bounds;

/// The elements of a menu by their names.
using Widgets = std::map<String, std::unique_ptr<Widget>>;
using TextAreas = std::map<String, std::unique_ptr<TextArea>>;

/// The widget as a scrolling area; null if it isn't one.
ScrollingArea* asArea(Widget* widget);

/// The elements of a scrolling area are named after it: "list.row1" moves with "list". The links
/// between them change one element at a time, so that making a long list takes linear time.

/// Links the element of that name to its area, if there is one.
void joinArea(const String& name, Bounds& bounds, const Widgets& widgets);
/// The same for a widget; if it is an area itself, also links the elements that are already there.
void linkWidget(const String& name, const Widgets& widgets, const TextAreas& textAreas);

/// Removes the element from its area, if it has one.
void leaveArea(Bounds& bounds);
/// The same for a widget that is removed; if it is an area, its elements stop moving with it.
void unlinkWidget(Widget& widget, const Widgets& widgets, const TextAreas& textAreas);

} // namespace zel
