#include "app/screens/RowList.h"

#include "engine/menu/Menu.h"
#include "engine/menu/widgets/ScrollingArea.h"

void RowList::resize(zel::Menu& menu, size_t count) {
    for (const char* part : parts) {
        for (size_t i = count; i < std::max<size_t>(rows, 1); ++i)
            menu.removeWidget(name(part, i));
        for (size_t i = 0; i < count; ++i)
            if (menu.getWidget(name(part, i)) == nullptr)
                menu.createRow(name(part, 0), name(part, i), int32_t(i) * step);
    }
    rows = count;
}

zel::String RowList::name(const char* part, size_t index) const {
    return zel::String(areaName) + "." + part + int32_t(index + 1);
}

zel::Widget* RowList::find(const zel::Menu& menu, const char* part, size_t index) const {
    return menu.getWidget(name(part, index));
}

int32_t RowList::indexOf(const zel::Widget& widget) const {
    for (size_t i = 0; i < rows; ++i)
        if (widget.getName() == name("row", i))
            return int32_t(i);
    return -1;
}

zel::ScrollingArea* RowList::area(const zel::Menu& menu) const {
    return dynamic_cast<zel::ScrollingArea*>(menu.getWidget(areaName));
}

void RowList::show(const zel::Menu& menu, size_t index) const {
    const zel::Widget* row = find(menu, "row", index);
    if (zel::ScrollingArea* window = area(menu); window != nullptr && row != nullptr)
        window->show(row->getBounds().rect);
}

std::pair<int32_t, int32_t> RowList::seen(const zel::Menu& menu) const {
    std::pair<int32_t, int32_t> range{0, 0};
    const zel::ScrollingArea* window = area(menu);
    for (size_t i = 0; window != nullptr && i < rows; ++i) {
        const zel::Widget* row = find(menu, "row", i);
        if (row == nullptr || !window->isWhollyShown(row->getBounds().rect))
            continue;
        range.first = range.first == 0 ? int32_t(i + 1) : range.first;
        range.second = int32_t(i + 1);
    }
    return range;
}
