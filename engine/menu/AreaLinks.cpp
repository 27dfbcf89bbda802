#include "engine/menu/AreaLinks.h"

#include "engine/menu/ScrollingArea.h"
#include "engine/menu/TextArea.h"

namespace zel {

namespace {

ScrollingArea* asArea(Widget* widget) { return dynamic_cast<ScrollingArea*>(widget); }

/// Calls the action with name and placing of each element that is named after the area. A name
/// belongs to what precedes its first point, so an area with a point in its name has none.
template <typename Element, typename Action>
void forEachOf(const String& area, const std::map<String, std::unique_ptr<Element>>& elements,
               const Action& action) {
    if (area.empty() || area.find('.') >= 0)
        return;
    const String prefix = area + ".";
    for (auto place = elements.lower_bound(prefix);
         place != elements.end() && place->first.left(prefix.length()) == prefix; ++place)
        action(place->second->getPlacing());
}

void join(Placing& placing, ScrollingArea& area) {
    placing.area = &area;
    area.addElement(placing.place);
}

} // namespace

void joinArea(const String& name, Placing& placing, const Widgets& widgets) {
    const int32_t point = name.find('.');
    if (point < 1)
        return;
    const auto found = widgets.find(name.left(point));
    ScrollingArea* area = found != widgets.end() ? asArea(found->second.get()) : nullptr;
    if (area != nullptr)
        join(placing, *area);
}

void linkWidget(const String& name, const Widgets& widgets, const TextAreas& textAreas) {
    Widget* widget = widgets.at(name).get();
    joinArea(name, widget->getPlacing(), widgets);
    ScrollingArea* area = asArea(widget);
    if (area == nullptr)
        return;
    const auto joinThis = [&](Placing& placing) { join(placing, *area); };
    forEachOf(name, widgets, joinThis);
    forEachOf(name, textAreas, joinThis);
}

void leaveArea(Placing& placing) {
    if (placing.area != nullptr)
        placing.area->removeElement(placing.place);
    placing.area = nullptr;
}

void unlinkWidget(Widget& widget, const Widgets& widgets, const TextAreas& textAreas) {
    leaveArea(widget.getPlacing());
    if (asArea(&widget) == nullptr)
        return;
    forEachOf(widget.getName(), widgets, leaveArea);
    forEachOf(widget.getName(), textAreas, leaveArea);
}

} // namespace zel
