#include "app/screens/FrontPainter.h"

#include <algorithm>
#include <cmath>

namespace {

// All in pixels.
constexpr float Tooth = 4; // depth of a trench's traverses
constexpr float ToothPitch = 8;
constexpr float TrenchWidth = 1.8F;
constexpr float Beyond = 21; // the edge, where nothing is drawn any more

} // namespace

void paintTrench(PencilSheet& sheet, const std::vector<PencilSheet::Point>& front, float aside,
                 const PencilSheet::Ink& ink, PencilSheet::Point size) {
    using Point = PencilSheet::Point;
    bool isOut = false;
    for (size_t i = 1; i < front.size(); ++i) {
        const Point from = front[i - 1];
        const Point to = front[i];
        const float length = std::hypot(from.x - to.x, from.y - to.y);
        if (length <= 0 || std::max(from.x, to.x) < -Beyond || std::max(from.y, to.y) < -Beyond ||
            std::min(from.x, to.x) > size.x + Beyond || std::min(from.y, to.y) > size.y + Beyond)
            continue;
        const Point step{(to.x - from.x) / length, (to.y - from.y) / length};
        const Point normal{step.y, -step.x};
        Point last{};
        for (float way = 0;; way = std::min(way + ToothPitch, length)) {
            const float before = aside + (isOut ? Tooth : 0);
            const float after = aside + (isOut ? 0 : Tooth);
            const auto point = [&](float offset) {
                return Point{from.x + step.x * way + normal.x * offset,
                             from.y + step.y * way + normal.y * offset};
            };
            if (way > 0)
                sheet.line(last, point(before), TrenchWidth, ink);
            sheet.line(point(before), point(after), TrenchWidth, ink);
            last = point(after);
            isOut = !isOut;
            if (way >= length)
                break;
        }
    }
}
