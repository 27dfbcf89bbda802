#include "app/screens/SketchPainter.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "app/career/Wording.h"
#include "app/screens/FrontPainter.h"
#include "engine/graphics/Font.h"

namespace {

constexpr PencilSheet::Ink Blue = {0x23, 0x40, 0x6B};
constexpr PencilSheet::Ink Red = {0xA3, 0x24, 0x1B};
constexpr PencilSheet::Ink Graphite = {0x35, 0x32, 0x2E};
constexpr PencilSheet::Ink Print = {0x2A, 0x22, 0x18};
constexpr PencilSheet::Ink Paper = {0xED, 0xE6, 0xD0};

// All in pixels.
constexpr float NumberRadius = 11.5F;
constexpr float NumberDistance = 22; // from its mark
constexpr float Crowded = 21;        // two numbers, or a number and a mark
constexpr float TrenchGap = 6;       // from the front to each side's line
constexpr float TownDot = 3;
constexpr float BaseDot = 4.5F;
constexpr float MarkSize = 8;
constexpr float LineWidth = 1.8F;
constexpr float ArrowedWay = 60; // the shortest piece with an arrow
constexpr float Pi = 3.14159265F;
constexpr int32_t NumberPlaces = 16; // around a mark that are tried, in each ring
constexpr int32_t NumberRings = 4;
constexpr int32_t BarSquares = 5;
constexpr float BarLeft = 6;
constexpr float BarTop = 38; // below the map
constexpr float BarThickness = 6;

const PencilSheet::Ink& inkOf(bool isAllied) { return isAllied ? Blue : Red; }

float distance(PencilSheet::Point a, PencilSheet::Point b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

} // namespace

zel::BitmapData SketchPainter::paint() {
    sheet.setLowest(Height);
    std::vector<Point> front;
    for (const MapPoint& point : sketch.front)
        front.push_back(at(point));
    paintTrench(sheet, front, TrenchGap, Red, {Width, Height});
    paintTrench(sheet, front, -TrenchGap, Blue, {Width, Height});
    for (const Town& town : sketch.towns)
        paintPlace(at(town.place), nameInLanguage(town.name), TownDot);
    if (sketch.hasBase) {
        sheet.ring(at(sketch.base), BaseDot * 2, LineWidth, Print);
        paintPlace(at(sketch.base), sketch.baseName, BaseDot);
    }
    paintWay();
    for (const SketchMark& mark : sketch.marks)
        paintMark(mark);
    for (const SketchMark& mark : sketch.marks)
        if (mark.number > 0)
            paintNumber(mark);
    sheet.setLowest(Height + BarHeight);
    paintBar();
    return sheet.take();
}

SketchPainter::Point SketchPainter::at(const MapPoint& place) const {
    const SketchFrame& frame = sketch.frame;
    const float scale = Width / frame.width();
    return {(place.z - frame.southWest.z) * scale, Height - (place.x - frame.southWest.x) * scale};
}

/// Its name is beside it, on the side where there is room.
void SketchPainter::paintPlace(Point place, std::string_view name, float dot) {
    constexpr float Gap = 7;
    sheet.disc(place, dot, Print);
    const float width = placeNames != nullptr ? static_cast<float>(placeNames->width(name)) : 0;
    const bool isLeft = place.x + dot + Gap + width > Width;
    const float side = isLeft ? -dot - Gap : dot + Gap;
    taken.push_back(place);
    const auto marks = static_cast<int32_t>(std::ceil(width / Crowded - 0.5F));
    for (int32_t i = 0; i < marks; ++i) {
        const float along = Crowded / 2 + static_cast<float>(i) * Crowded;
        taken.push_back({place.x + side + (isLeft ? -along : along), place.y});
    }
    sheet.write(placeNames, {place.x + side, place.y + Gap}, name, Print,
                isLeft ? PencilSheet::Align::Right : PencilSheet::Align::Left);
}

void SketchPainter::paintWay() {
    float drawn = 0;
    for (size_t i = 1; i < sketch.way.size(); ++i) {
        const Point from = at(sketch.way[i - 1]);
        const Point to = at(sketch.way[i]);
        sheet.dashes(from, to, Blue, drawn);
        if (distance(from, to) >= ArrowedWay)
            sheet.arrow(from, to, Blue);
    }
}

void SketchPainter::paintMark(const SketchMark& mark) {
    const Point p = at(mark.place);
    const Ink& ink = inkOf(mark.isAllied);
    switch (mark.kind) {
    case SketchMark::Begin:
        sheet.disc(p, TownDot, Blue);
        break;
    case SketchMark::Hit:
        sheet.ring(p, MarkSize / 2, LineWidth, Red);
        break;
    case SketchMark::OwnLoss:
        sheet.ring(p, MarkSize * 1.7F, LineWidth, ink);
        [[fallthrough]];
    case SketchMark::Loss:
        for (const float side : {-1.0F, 1.0F})
            sheet.line({p.x - side * MarkSize, p.y - MarkSize},
                       {p.x + side * MarkSize, p.y + MarkSize}, LineWidth * 1.4F, ink);
        break;
    case SketchMark::Landing:
        sheet.line({p.x - MarkSize, p.y + MarkSize}, {p.x + MarkSize, p.y + MarkSize}, LineWidth,
                   ink);
        for (const float side : {-1.0F, 1.0F})
            sheet.line({p.x + side * MarkSize, p.y + MarkSize}, {p.x, p.y - MarkSize}, LineWidth,
                       ink);
        break;
    }
    taken.push_back(p);
}

void SketchPainter::paintNumber(const SketchMark& mark) {
    const Point from = at(mark.place);
    const Point place = placeForNumber(from);
    taken.push_back(place);
    if (const float away = distance(from, place); away > NumberDistance + 1) {
        const Point step{(place.x - from.x) / away, (place.y - from.y) / away};
        sheet.line({from.x + step.x * MarkSize, from.y + step.y * MarkSize}, place, 1, Graphite);
    }
    sheet.disc(place, NumberRadius, Paper);
    sheet.ring(place, NumberRadius, 1.3F, Graphite);
    const float middle = numbers != nullptr ? static_cast<float>(numbers->base()) * 0.36F : 0;
    sheet.write(numbers, {place.x, place.y + middle}, zel::String(mark.number).view(), Print,
                PencilSheet::Align::Centre);
}

/// Puts it around the mark, as near as possible where nothing else is; otherwise where the least
/// is.
SketchPainter::Point SketchPainter::placeForNumber(Point mark) const {
    Point best = mark;
    float least = std::numeric_limits<float>::max();
    for (int32_t i = 0; i < NumberPlaces * NumberRings; ++i) {
        const int32_t ringNumber = i / NumberPlaces;
        const auto ring = static_cast<float>(ringNumber);
        const float angle = (static_cast<float>(i) + ring / 2) * 2 * Pi / NumberPlaces;
        const float away = NumberDistance * (1 + 0.6F * ring);
        const Point place{mark.x + away * std::cos(angle), mark.y + away * std::sin(angle)};
        float cost = ring * 0.1F;
        if (place.x < NumberRadius || place.y < NumberRadius || place.x > Width - NumberRadius ||
            place.y > Height - NumberRadius)
            cost += 100;
        for (const Point& other : taken)
            cost += std::max(0.0F, Crowded - distance(place, other)) / Crowded;
        if (cost < least) {
            least = cost;
            best = place;
        }
    }
    return best;
}

void SketchPainter::paintBar() {
    const float square = Width / static_cast<float>(SketchFrame::Columns);
    const float top = Height + BarTop;
    const float bottom = top + BarThickness;
    for (int32_t i = 0; i <= BarSquares; ++i) {
        const float x = BarLeft + static_cast<float>(i) * square;
        const bool isLabelled = sketch.frame.kilometres < 5 || i % BarSquares == 0;
        if (isLabelled)
            sheet.write(placeNames, {x, top - 5}, zel::String(i * sketch.frame.kilometres).view(),
                        Graphite, PencilSheet::Align::Centre);
        if (i == BarSquares)
            break;
        if (i % 2 == 0)
            sheet.line({x, (top + bottom) / 2}, {x + square, (top + bottom) / 2}, BarThickness,
                       Graphite);
        for (const float y : {top, bottom})
            sheet.line({x, y}, {x + square, y}, 1, Graphite);
    }
    const float end = BarLeft + BarSquares * square;
    sheet.line({end, top}, {end, bottom}, 1, Graphite);
    sheet.write(placeNames, {end + 12, bottom + 2}, "km", Graphite, PencilSheet::Align::Left);
}
