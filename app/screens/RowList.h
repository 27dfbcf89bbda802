#pragma once

#include <vector>

#include "engine/core/String.h"

namespace zel {
class Menu;
class ScrollingArea;
class Widget;
} // namespace zel

/// The rows of a scrolling area, one for each item: "book.row1" and so on, in the area "book". The
/// script adds the first row; the others are made like it.
class RowList {
public:
    /// parts: what a row consists of, as "row" and "ribbon", for "book.row1" and "book.ribbon1".
    RowList(const char* area, int32_t step, std::vector<const char*> parts)
        : areaName(area), step(step), parts(std::move(parts)) {}

    /// Makes or removes rows until there are `count`.
    void resize(zel::Menu& menu, size_t count);
    /// The name of a row's part, the first row's index is 0.
    zel::String name(const char* part, size_t index) const;
    /// Null for a menu without it.
    zel::Widget* find(const zel::Menu& menu, const char* part, size_t index) const;
    /// The index of the row whose part "row" is that widget; -1 for any other widget.
    int32_t indexOf(const zel::Widget& widget) const;
    /// Scrolls as little as needed to show the row.
    void show(const zel::Menu& menu, size_t index) const;
    /// The first and the last row that are wholly in view, counted from 1; 0 and 0 for none.
    std::pair<int32_t, int32_t> seen(const zel::Menu& menu) const;

private:
    zel::ScrollingArea* area(const zel::Menu& menu) const;

    const char* areaName;
    int32_t step; // design pixels from row to row
    std::vector<const char*> parts;
    size_t rows = 0;
};
