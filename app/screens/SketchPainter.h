#pragma once

#include <vector>

#include "app/book/Sketch.h"
#include "app/screens/PencilSheet.h"

/// Draws the sketch of a fight as a picture with a clear background, for squared paper: front,
/// towns, base, the player's way, marks with their numbers, and the scale bar below.
class SketchPainter {
public:
    static constexpr int32_t Width = 624;    // pixels of the design
    static constexpr int32_t Height = 476;   // of the map
    static constexpr int32_t BarHeight = 56; // below it
    static constexpr int32_t BarWidth = 160;

    /// placeNames, numbers: fonts; a null one leaves its texts out. detail: picture pixels per
    /// design pixel. REQUIRES: sketch and fonts outlive the painter.
    SketchPainter(const Sketch& sketch, const zel::Font* placeNames, const zel::Font* numbers,
                  int32_t detail = 1)
        : sketch(sketch), placeNames(placeNames), numbers(numbers),
          sheet(Width, Height + BarHeight, detail) {}

    /// The picture, Width by Height and BarHeight in pixels of the design. Call it once.
    zel::BitmapData paint();

private:
    using Point = PencilSheet::Point;
    using Ink = PencilSheet::Ink;

    Point at(const MapPoint& place) const;
    void paintPlace(Point place, std::string_view name, float dot);
    void paintWay();
    void paintMark(const SketchMark& mark);
    void paintNumber(const SketchMark& mark);
    Point placeForNumber(Point mark) const;
    void paintBar();

    const Sketch& sketch;
    const zel::Font* placeNames;
    const zel::Font* numbers;
    PencilSheet sheet;
    std::vector<Point> taken; // by marks and numbers
};
