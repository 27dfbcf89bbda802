#pragma once

#include <cstdint>
#include <vector>

namespace zel {

class Menu;
class ScrollingArea;
class Widget;

/// Where keys move the focus. Each operation returns null where there is nowhere to go.

/// All widgets that can have the focus, by rows from the top and within a row from the left. The
/// rows of a scrolling area follow one another; they come at the rest position of the first one.
std::vector<Widget*> focusOrder(const Menu& menu);
/// The next widget in that order, or the one before, cyclically; from null the first or the last.
Widget* nextInOrder(const Menu& menu, const Widget* from, bool backwards);
/// The nearest widget in a direction; one step is -1 or 1, the other 0. Rows of its own area come
/// first, then widgets in view. From null the first or the last in order.
Widget* nextInDirection(const Menu& menu, const Widget* from, int32_t stepX, int32_t stepY);
/// The row of the same area that is about the area's height further down (1) or up (-1).
Widget* nextPage(const Menu& menu, const Widget& from, int32_t step);
/// The first or last row of the area; for null, the first or last widget of the menu.
Widget* firstOrLast(const Menu& menu, const ScrollingArea* area, bool isLast);

} // namespace zel
