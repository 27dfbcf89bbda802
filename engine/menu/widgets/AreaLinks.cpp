#include "engine/menu/widgets/AreaLinks.h"

#include "engine/menu/widgets/ScrollingArea.h"
#include "engine/menu/widgets/TextArea.h"

namespace zel {

ScrollingArea* asArea(Widget* widget) { return dynamic_cast<ScrollingArea*>(widget); }

namespace {

/// Calls the action with name and bounds of each element that is named after the area. A name
/// belongs to what precedes its first point, so an area with a point in its name has none.
template <typename Element, typename Action>
void forEachOf(const String& area, const std::map<String, std::unique_ptr<Element>>& elements,
               const Action& action) {
    if (area.empty() || area.find('.') >= 0)
        return;
    const String prefix = area + ".";
    for (auto place = elements.lower_bound(prefix);
         place != elements.end() && place->first.left(prefix.length()) == prefix; ++place)
        action(place->second->getBounds());
}

void join(Bounds& bounds, ScrollingArea& area) {
    bounds.area = &area;
    area.addElement(bounds.rect);
}

} // namespace

void joinArea(const String& name, Bounds& bounds, const Widgets& widgets) {
    const int32_t point = name.find('.');
    if (point < 1)
        return;
    const auto found = widgets.find(name.left(point));
    ScrollingArea* area = found != widgets.end() ? asArea(found->second.get()) : nullptr;
    if (area != nullptr)
        join(bounds, *area);
}

void linkWidget(const String& name, const Widgets& widgets, const TextAreas& textAreas) {
    Widget* widget = widgets.at(name).get();
    joinArea(name, widget->getBounds(), widgets);
    ScrollingArea* area = asArea(widget);
    if (area == nullptr)
        return;
    const auto joinThis = [&](Bounds& bounds) { join(bounds, *area); };
    forEachOf(name, widgets, joinThis);
    forEachOf(name, textAreas, joinThis);
}

void leaveArea(Bounds& bounds) {
    if (bounds.area != nullptr)
        bounds.area->removeElement(bounds.rect);
    bounds.area = nullptr;
}

void unlinkWidget(Widget& widget, const Widgets& widgets, const TextAreas& textAreas) {
    leaveArea(widget.getBounds());
    if (asArea(&widget) == nullptr)
        return;
    forEachOf(widget.getName(), widgets, leaveArea);
    forEachOf(widget.getName(), textAreas, leaveArea);
}

} // namespace zel
