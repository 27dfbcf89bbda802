#include "engine/menu/widgets/FocusOrder.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <tuple>

#include "engine/menu/Menu.h"
#include "engine/menu/widgets/ScrollingArea.h"

namespace zel {

namespace {

struct Middle {
    int32_t x, y;
};

Middle middleOf(const PixelRect& rect) {
    return {rect.x + rect.width / 2, rect.y + rect.height / 2};
}

bool isAbove(const Middle& a, const Middle& b) { return std::tie(a.y, a.x) < std::tie(b.y, b.x); }

/// The nearest widget in a direction among those offered.
struct Nearest {
    Middle start;
    int32_t stepX, stepY;
    Widget* widget = nullptr;
    int32_t distance = 0;

    /// isNarrow: only candidates that are at least as far ahead as aside.
    void offer(Widget& candidate, const Middle& middle, bool isNarrow) {
        const int32_t ahead = (middle.x - start.x) * stepX + (middle.y - start.y) * stepY;
        const int32_t aside =
            std::abs((middle.x - start.x) * stepY) + std::abs((middle.y - start.y) * stepX);
        // The distance aside counts double, so that the focus stays in a column.
        const int32_t far = ahead + 2 * aside;
        if (ahead <= 0 || (isNarrow && aside > ahead) || (widget != nullptr && far >= distance))
            return;
        widget = &candidate;
        distance = far;
    }
};

} // namespace

std::vector<Widget*> focusOrder(const Menu& menu) {
    struct Stop {
        Middle group; // of the first row of its area; its own without an area
        const ScrollingArea* area;
        Middle own;
        Widget* widget;
    };
    std::vector<Stop> stops;
    std::map<const ScrollingArea*, Middle> firstRows;
    for (const auto& [name, widget] : menu.getWidgets()) {
        if (!widget->canFocus())
            continue;
        const Bounds& bounds = widget->getBounds();
        const Middle own = middleOf(bounds.rect);
        stops.push_back({own, bounds.area, own, widget.get()});
        const auto [first, isNew] = firstRows.try_emplace(bounds.area, own);
        if (!isNew && isAbove(own, first->second))
            first->second = own;
    }
    // An area isn't a tab stop while one of its rows is.
    stops.erase(std::remove_if(stops.begin(), stops.end(),
                               [&](const Stop& stop) {
                                   const auto* area = dynamic_cast<ScrollingArea*>(stop.widget);
                                   return area != nullptr && firstRows.count(area) > 0;
                               }),
                stops.end());
    for (Stop& stop : stops)
        if (stop.area != nullptr)
            stop.group = firstRows.at(stop.area);
    std::stable_sort(stops.begin(), stops.end(), [](const Stop& a, const Stop& b) {
        return std::tie(a.group.y, a.group.x, a.own.y, a.own.x) <
               std::tie(b.group.y, b.group.x, b.own.y, b.own.x);
    });
    std::vector<Widget*> widgets;
    widgets.reserve(stops.size());
    for (const Stop& stop : stops)
        widgets.push_back(stop.widget);
    return widgets;
}

Widget* nextInOrder(const Menu& menu, const Widget* from, bool backwards) {
    const std::vector<Widget*> widgets = focusOrder(menu);
    if (widgets.empty())
        return nullptr;
    const auto found = std::find(widgets.begin(), widgets.end(), from);
    if (backwards)
        return found == widgets.end() || found == widgets.begin() ? widgets.back()
                                                                  : *std::prev(found);
    return found == widgets.end() || std::next(found) == widgets.end() ? widgets.front()
                                                                       : *std::next(found);
}

Widget* nextInDirection(const Menu& menu, const Widget* from, int32_t stepX, int32_t stepY) {
    if (from == nullptr)
        return nextInOrder(menu, nullptr, stepX + stepY < 0);
    const ScrollingArea* area = from->getBounds().area;
    const Middle start = middleOf(from->getBounds().currentRect());
    Nearest ofArea{start, stepX, stepY};
    Nearest ofMenu{start, stepX, stepY};
    for (Widget* widget : focusOrder(menu)) {
        const PixelRect shown = widget->getBounds().shownRect();
        if (area != nullptr && widget->getBounds().area == area)
            ofArea.offer(*widget, middleOf(widget->getBounds().currentRect()), true);
        else if (shown.width > 0 && shown.height > 0)
            ofMenu.offer(*widget, middleOf(shown), false);
    }
    return ofArea.widget != nullptr ? ofArea.widget : ofMenu.widget;
}

Widget* nextPage(const Menu& menu, const Widget& from, int32_t step) {
    const ScrollingArea* area = from.getBounds().area;
    if (area == nullptr)
        return nullptr;
    const int32_t start = middleOf(from.getBounds().rect).y;
    Widget* next = nullptr;
    int32_t nextDistance = 0;
    for (Widget* widget : focusOrder(menu)) {
        const int32_t distance = (middleOf(widget->getBounds().rect).y - start) * step;
        const bool isFurther = distance > nextDistance && distance <= area->getBounds().rect.height;
        if (widget->getBounds().area == area && isFurther) {
            next = widget;
            nextDistance = distance;
        }
    }
    return next;
}

Widget* firstOrLast(const Menu& menu, const ScrollingArea* area, bool isLast) {
    std::vector<Widget*> widgets = focusOrder(menu);
    if (isLast)
        std::reverse(widgets.begin(), widgets.end());
    const auto found = std::find_if(widgets.begin(), widgets.end(), [area](const Widget* widget) {
        return area == nullptr || widget->getBounds().area == area;
    });
    return found != widgets.end() ? *found : nullptr;
}

} // namespace zel
