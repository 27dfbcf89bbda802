#include "app/book/SketchPicture.h"

#include <algorithm>
#include <cmath>

#include "app/book/ChartStyle.h"
#include "app/book/Svg.h"
#include "app/book/WebWording.h"
#include "app/career/CareerTexts.h"

namespace {

using Anchor = Svg::Anchor;

constexpr float MapWidth = 312;

struct Pixel {
    float x, y;
};
/// A part of a line, as fractions of its length.
struct Clip {
    float begin = 0;
    float end = 1;
    bool isEmpty() const { return begin >= end; }
};

/// Draws a sketch on its small map.
class MapDrawing {
public:
    explicit MapDrawing(const Sketch& sketch)
        : sketch(sketch), scale(MapWidth / sketch.frame.width()),
          height(MapWidth * SketchFrame::Shape), svg(MapWidth, height + 22) {}

    std::string draw(const zel::String& title, const zel::String& described) {
        svg.rect(0.5F, 0.5F, MapWidth - 1, height - 1, "fill=\"#EFE6CE\" stroke=\"#2A1E12\"");
        front(3, "stroke=\"#A3241B\" stroke-width=\"1.8\" stroke-dasharray=\"5 2\"");
        front(-3, "stroke=\"#23406B\" stroke-width=\"1.8\" stroke-dasharray=\"5 2\"");
        svg.beginLine();
        for (const MapPoint& point : sketch.way)
            svg.point(x(point), y(point));
        if (!sketch.way.empty())
            svg.endLine("stroke=\"#2A1E12\" stroke-width=\"1.5\" stroke-dasharray=\"6 3\"");
        for (const Town& town : sketch.towns)
            place(town.place, nameInLanguage(town.name), 2);
        if (sketch.hasBase) {
            svg.circle(x(sketch.base), y(sketch.base), 5, "fill=\"none\" stroke=\"#2A1E12\"");
            place(sketch.base, sketch.baseName, 2.5F);
        }
        for (const SketchMark& one : sketch.marks)
            mark(one);
        bar();
        return svg.element(title, described, "halo"); // lines run below the names
    }

private:
    float x(const MapPoint& point) const { return (point.z - sketch.frame.southWest.z) * scale; }
    float y(const MapPoint& point) const {
        return height - (point.x - sketch.frame.southWest.x) * scale;
    }
    /// The pieces of the front that are on the map, moved `aside` pixels to its left.
    void front(float aside, const char* style) {
        bool isOpen = false;
        for (size_t i = 1; i < sketch.front.size(); ++i) {
            Pixel from{x(sketch.front[i - 1]), y(sketch.front[i - 1])};
            Pixel to{x(sketch.front[i]), y(sketch.front[i])};
            const float length = std::hypot(to.x - from.x, to.y - from.y);
            if (length <= 0)
                continue;
            const Pixel shift{(to.y - from.y) / length * aside, (from.x - to.x) / length * aside};
            from = {from.x + shift.x, from.y + shift.y};
            to = {to.x + shift.x, to.y + shift.y};
            const Clip part = onMap(from, to);
            if (isOpen && (part.isEmpty() || part.begin > 0)) {
                svg.endLine(style);
                isOpen = false;
            }
            if (part.isEmpty())
                continue;
            if (!isOpen)
                svg.beginLine();
            svg.point(from.x + (to.x - from.x) * part.begin, from.y + (to.y - from.y) * part.begin);
            svg.point(from.x + (to.x - from.x) * part.end, from.y + (to.y - from.y) * part.end);
            isOpen = part.end == 1;
            if (!isOpen)
                svg.endLine(style);
        }
        if (isOpen)
            svg.endLine(style);
    }
    /// The part of that line that is on the map.
    Clip onMap(const Pixel& from, const Pixel& to) const {
        constexpr float Edge = 1;
        Clip part;
        // room: from its beginning to that edge; step: how far it goes that way.
        const auto cut = [&](float step, float room) {
            if (step > 0)
                part.end = std::min(part.end, room / step);
            else if (step < 0)
                part.begin = std::max(part.begin, room / step);
            else if (room < 0)
                part.end = 0;
        };
        cut(from.x - to.x, from.x - Edge);
        cut(to.x - from.x, MapWidth - Edge - from.x);
        cut(from.y - to.y, from.y - Edge);
        cut(to.y - from.y, height - Edge - from.y);
        return part;
    }
    void place(const MapPoint& place, const zel::String& name, float dot) {
        svg.circle(x(place), y(place), dot, "fill=\"#2A1E12\"");
        const bool isLeft = x(place) > MapWidth * 0.7F;
        svg.text(x(place) + (isLeft ? -6 : 6), y(place) + 4, name,
                 isLeft ? Anchor::End : Anchor::Start,
                 "font-size=\"11\" font-style=\"italic\" fill=\"#2A1E12\"");
    }
    void mark(const SketchMark& mark) {
        const float px = x(mark.place);
        const float py = y(mark.place);
        const char* ink = mark.isAllied ? "fill=\"none\" stroke=\"#23406B\" stroke-width=\"2.2\""
                                        : "fill=\"none\" stroke=\"#A3241B\" stroke-width=\"2.2\"";
        switch (mark.kind) {
        case SketchMark::Begin:
            break;
        case SketchMark::Hit:
            svg.circle(px, py, 2.5F, "fill=\"none\" stroke=\"#8E1F17\"");
            break;
        case SketchMark::OwnLoss:
            svg.circle(px, py, 9, ink);
            [[fallthrough]];
        case SketchMark::Loss:
            svg.path(px - 5, py - 5, "l10 10 m0 -10 l-10 10", ink);
            break;
        case SketchMark::Landing:
            svg.path(px, py - 5, "l5 9 h-10 Z", "fill=\"none\" stroke=\"#2A1E12\"");
            break;
        }
    }
    void bar() {
        const float square = MapWidth / static_cast<float>(SketchFrame::Columns);
        const float top = height + 12;
        svg.rect(4, top, 5 * square, 5, "fill=\"#2A1E12\"");
        svg.text(10 + 5 * square, top + 6,
                 textOf(wording::Kilometres, {5 * sketch.frame.kilometres}), Anchor::Start,
                 ChartSmall);
        svg.path(MapWidth - 10, height + 4, "l-4 15 l4 -4 l4 4 Z", "fill=\"#2A1E12\"");
        svg.text(MapWidth - 26, height + 17, textOf(wording::NorthMark), Anchor::Middle, ChartBold);
    }

    const Sketch& sketch;
    float scale;
    float height;
    Svg svg;
};

} // namespace

std::string sketchPicture(const Sketch& sketch, const zel::String& title,
                          const zel::String& described) {
    return MapDrawing(sketch).draw(title, described);
}
