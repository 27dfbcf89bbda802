#include "app/screens/SectorPainter.h"

#include <algorithm>
#include <cmath>

#include "app/career/Wording.h"
#include "app/screens/FrontPainter.h"
#include "engine/graphics/Font.h"

namespace {

constexpr PencilSheet::Ink OurBlue = {0x23, 0x40, 0x6B};
constexpr PencilSheet::Ink TheirRed = {0xA3, 0x24, 0x1B};
constexpr PencilSheet::Ink RingRed = {0xB0, 0x24, 0x1B};
constexpr PencilSheet::Ink MapInk = {0x2C, 0x21, 0x14};
constexpr PencilSheet::Ink SquareInk = {0xC4, 0xB4, 0x88};
constexpr PencilSheet::Ink SeaInk = {0x7F, 0xA3, 0xA8};
constexpr PencilSheet::Ink Blank = {0xED, 0xE2, 0xC4};

constexpr float Scales[] = {166.7F, 200, 250, 333.3F}; // metres per pixel; the first that will do
constexpr float Share = 2.0F / 3; // of the map: the rest is a margin of a sixth at each edge
constexpr float Square = 10000;   // metres
constexpr float FarAway = 600000; // metres, beyond every edge

// All in pixels.
constexpr float TrenchAside = 3; // from the front to each side's line
constexpr float NameAside = 6;   // from the front to where a name may begin
constexpr float FightRadius = 19;
constexpr float FieldRadius = 8;
constexpr float ShortestWay = 20; // between the rings, for an arrow
constexpr float Dot = 2.6F;
constexpr float NearField = 10; // a town there is the field's
constexpr float HalfName = 8;   // of its height
constexpr float NameEdge = 2;   // from a name to the map's edge, at least
constexpr float NameGap = 4;    // between two names on a line, at least
constexpr float ScaleLeft = 8;
constexpr float ScaleAbove = 28; // from the map to the bar
constexpr float ScaleThickness = 6;
constexpr float LeastMark = 18;
constexpr int32_t ScaleMarks[] = {0, 5, 10, 20}; // kilometres

} // namespace

SectorPainter::SectorPainter(const Sector& sector, const zel::Font* names, int32_t detail)
    : sector(sector), names(names), front(frontOf(sector.date, sector.onChannelMap)),
      towns(townsOf(sector.onChannelMap)), taskTown(findTaskTown()),
      sheet(Width, Height + BarHeight, detail) {
    for (const float scale : Scales) {
        metresAPixel = scale;
        if (fitsAt(scale) && showsFront() && (taskTown == nullptr || isOnMap(taskTown->place)))
            break;
    }
}

/// Null if the task names none, or one that is the field.
const Town* SectorPainter::findTaskTown() const {
    const char* name =
        sector.isFlown ? townNear(sector.fight, sector.onChannelMap, NearTown) : nullptr;
    const auto found = std::find_if(towns.begin(), towns.end(), [&](const Town& town) {
        return name != nullptr && std::string_view(town.name) == name;
    });
    return found != towns.end() ? &*found : nullptr;
}

bool SectorPainter::isOnMap(const MapPoint& place) const {
    const Point point = at(place);
    return point.x > Dot && point.y > Dot && point.x < Width - Dot && point.y < Height - Dot;
}

bool SectorPainter::fitsAt(float metres) const {
    return std::fabs(sector.fight.z - sector.field.z) <= Share * Width * metres &&
           std::fabs(sector.fight.x - sector.field.x) <= Share * Height * metres;
}

bool SectorPainter::showsFront() const {
    constexpr float Edge = 20;
    constexpr int32_t Steps = 8;
    const std::vector<Point> line = at(front);
    for (size_t i = 1; i < line.size(); ++i)
        for (int32_t step = 0; step <= Steps; ++step) {
            const float part = static_cast<float>(step) / Steps;
            const float x = line[i - 1].x + (line[i].x - line[i - 1].x) * part;
            const float y = line[i - 1].y + (line[i].y - line[i - 1].y) * part;
            if (x > Edge && x < Width - Edge && y > Edge && y < Height - Edge)
                return true;
        }
    return false;
}

SectorPainter::Point SectorPainter::at(const MapPoint& place) const {
    const float north = place.x - (sector.field.x + sector.fight.x) / 2;
    const float east = place.z - (sector.field.z + sector.fight.z) / 2;
    return {Width / 2.0F + east / metresAPixel, Height / 2.0F - north / metresAPixel};
}

std::vector<SectorPainter::Point> SectorPainter::at(const std::vector<MapPoint>& places) const {
    std::vector<Point> points;
    points.reserve(places.size());
    for (const MapPoint& place : places)
        points.push_back(at(place));
    return points;
}

zel::BitmapData SectorPainter::paint() {
    sheet.setLowest(Height);
    paintSea();
    paintSquares();
    const std::vector<Point> line = at(front);
    paintTrench(sheet, line, TrenchAside, TheirRed, {Width, Height});
    paintTrench(sheet, line, -TrenchAside, OurBlue, {Width, Height});
    for (const auto& [place, radius] :
         {std::pair{at(sector.field), FieldRadius}, std::pair{at(sector.fight), FightRadius}})
        if (sector.isFlown || radius == FieldRadius)
            taken.push_back(
                {place.x - radius, place.y - radius, place.x + radius, place.y + radius});
    coverFront(line);
    paintFieldName();
    paintTaskTown();
    paintTowns();
    if (sector.isFlown)
        paintWay();
    paintRings();
    sheet.setLowest(Height + BarHeight);
    paintBar();
    return sheet.take();
}

void SectorPainter::paintSea() {
    std::vector<MapPoint> sea = coastOf(sector.onChannelMap);
    const std::vector<Point> coast = at(sea);
    sea.push_back({sea.back().x + FarAway, sea.back().z});
    sea.push_back({sea.front().x + FarAway, sea.front().z - FarAway});
    sea.push_back({sea.front().x, sea.front().z - FarAway});
    sheet.fill(at(sea), SeaInk, 0.45F);
    for (size_t i = 1; i < coast.size(); ++i)
        sheet.line(coast[i - 1], coast[i], 1.4F, MapInk);
}

void SectorPainter::paintSquares() {
    const float step = Square / metresAPixel;
    const Point first{std::fmod(Width / 2.0F, step), std::fmod(Height / 2.0F, step)};
    const auto count = [&](float from, float size) {
        return static_cast<int32_t>(std::ceil((size - from) / step));
    };
    for (int32_t i = 0; i < count(first.x, Width); ++i) {
        const float x = first.x + static_cast<float>(i) * step;
        sheet.line({x, 0}, {x, Height}, 0.6F, SquareInk);
    }
    for (int32_t i = 0; i < count(first.y, Height); ++i) {
        const float y = first.y + static_cast<float>(i) * step;
        sheet.line({0, y}, {Width, y}, 0.6F, SquareInk);
    }
}

/// Notes which parts of the map the front covers.
void SectorPainter::coverFront(const std::vector<Point>& line) {
    for (size_t i = 1; i < line.size(); ++i) {
        const Point way{line[i].x - line[i - 1].x, line[i].y - line[i - 1].y};
        const auto steps = static_cast<int32_t>(std::ceil(std::hypot(way.x, way.y) / NameAside));
        for (int32_t step = 0; step <= steps; ++step) {
            const float part = static_cast<float>(step) / static_cast<float>(std::max(steps, 1));
            const Point place{line[i - 1].x + way.x * part, line[i - 1].y + way.y * part};
            frontBoxes.push_back({place.x - NameAside, place.y - NameAside, place.x + NameAside,
                                  place.y + NameAside});
        }
    }
}

/// Beside the front if there is room.
void SectorPainter::paintFieldName() {
    const Point field = at(sector.field);
    for (const Over over : {Over::Nothing, Over::Front})
        if (name(field, sector.fieldName.view(), FieldRadius + 3, over))
            return;
}

/// It is always named, over the front or even over a ring.
void SectorPainter::paintTaskTown() {
    for (const Over over : {Over::Nothing, Over::Front, Over::Everything})
        if (taskTown != nullptr && paintTown(*taskTown, over))
            return;
}

/// Those nearest to the middle come first: if two names meet, only the first is shown. Names are
/// left out rather than written over the front.
void SectorPainter::paintTowns() {
    const Point middle{Width / 2.0F, Height / 2.0F};
    const auto away = [&](const Town* town) {
        const Point place = at(town->place);
        return std::hypot(place.x - middle.x, place.y - middle.y);
    };
    std::vector<const Town*> others;
    for (const Town& town : towns)
        if (&town != taskTown)
            others.push_back(&town);
    std::stable_sort(others.begin(), others.end(),
                     [&](const Town* a, const Town* b) { return away(a) < away(b); });
    for (const Town* town : others)
        paintTown(*town, Over::Nothing);
}

/// False if there is no room. One at the field is named as the field.
bool SectorPainter::paintTown(const Town& town, Over over) {
    const Point place = at(town.place);
    const Point field = at(sector.field);
    const zel::String townName = nameInLanguage(town.name);
    const bool isField = townName == sector.fieldName ||
                         std::hypot(place.x - field.x, place.y - field.y) < NearField;
    if (!isOnMap(town.place) || isField || !name(place, townName.view(), Dot + 4, over))
        return false;
    sheet.disc(place, Dot, MapInk);
    return true;
}

/// Writes it beside the place, on the side where there is room; false if there is none.
bool SectorPainter::name(Point place, std::string_view text, float gap, Over over) {
    const float width = names != nullptr ? static_cast<float>(names->width(text)) : 0;
    const float middle =
        std::clamp(place.x - width / 2, NameEdge, std::max(NameEdge, Width - NameEdge - width));
    const Point starts[] = {{place.x + gap, place.y},
                            {place.x - gap - width, place.y},
                            {middle, place.y - gap - HalfName},
                            {middle, place.y + gap + HalfName},
                            {middle, place.y + gap + 3 * HalfName},
                            {middle, place.y - gap - 3 * HalfName}};
    for (const Point& start : starts) {
        const Box box{start.x, start.y - HalfName, start.x + width, start.y + HalfName};
        const auto isMet = [&](const Box& other) { return box.meets(other); };
        const bool isIn = box.left >= NameEdge && box.top >= NameEdge &&
                          box.right <= Width - NameEdge && box.bottom <= Height - NameEdge;
        const bool isFree =
            over == Over::Everything ||
            (std::none_of(taken.begin(), taken.end(), isMet) &&
             (over == Over::Front || std::none_of(frontBoxes.begin(), frontBoxes.end(), isMet)));
        if (!isIn || !isFree)
            continue;
        sheet.write(names, {start.x, start.y + 6}, text, MapInk, PencilSheet::Align::Left);
        taken.push_back({box.left - NameGap, box.top, box.right + NameGap, box.bottom});
        taken.push_back({place.x - gap, place.y - gap, place.x + gap, place.y + gap});
        return true;
    }
    return false;
}

void SectorPainter::paintWay() {
    const Point from = at(sector.field);
    const Point to = at(sector.fight);
    const float length = std::hypot(to.x - from.x, to.y - from.y);
    const float begin = FieldRadius + 4;
    const float end = length - FightRadius - 3;
    if (end - begin < ShortestWay)
        return;
    const auto point = [&](float way) {
        return Point{from.x + (to.x - from.x) / length * way,
                     from.y + (to.y - from.y) / length * way};
    };
    float drawn = 0;
    sheet.dashes(point(begin), point(end), RingRed, drawn);
    sheet.arrow(point(end - 1), point(end + 1), RingRed);
}

void SectorPainter::paintRings() {
    const Point field = at(sector.field);
    sheet.disc(field, FieldRadius, OurBlue);
    sheet.disc(field, FieldRadius * 0.6F, Blank);
    sheet.disc(field, FieldRadius * 0.3F, RingRed);
    if (sector.isFlown)
        sheet.ring(at(sector.fight), FightRadius, 3, RingRed);
}

void SectorPainter::paintBar() {
    const float top = Height + ScaleAbove;
    const float bottom = top + ScaleThickness;
    const auto x = [&](int32_t kilometres) {
        return ScaleLeft + static_cast<float>(kilometres) * 1000 / metresAPixel;
    };
    bool isDark = true;
    int32_t last = 0;
    for (const int32_t mark : ScaleMarks) {
        if (mark > 0 && x(mark) - x(last) < LeastMark)
            continue; // two figures would touch
        sheet.write(names, {x(mark), top - 5}, zel::String(mark).view(), MapInk,
                    PencilSheet::Align::Centre);
        if (mark == 0)
            continue;
        if (isDark)
            sheet.line({x(last), (top + bottom) / 2}, {x(mark), (top + bottom) / 2}, ScaleThickness,
                       MapInk);
        isDark = !isDark;
        last = mark;
    }
    for (const float y : {top, bottom})
        sheet.line({x(0), y}, {x(last), y}, 1, MapInk);
    sheet.line({x(last), top}, {x(last), bottom}, 1, MapInk);
    sheet.write(names, {x(last) + 14, bottom + 2}, "km", MapInk, PencilSheet::Align::Left);
}
