#pragma once

#include <vector>

#include "app/book/Theatre.h"
#include "app/screens/PencilSheet.h"

/// What the map of the orders shows.
struct Sector {
    int32_t date = 0; // yyyymmdd
    bool onChannelMap = false;
    MapPoint field;
    zel::String fieldName; // in the language in use
    MapPoint fight;
    bool isFlown = true; // false: nobody flies there, and the fight isn't shown
};

/// Draws the map of a sector with a clear background: sea, squares of ten kilometres, front, towns,
/// the field in a blue ring and the fight in a red one, and the scale bar below.
///
/// Both rings are at least a sixth of its sides from the edge; the front and the town that the task
/// names are on it if they are not too far away. That town is always named, the others where there
/// is room.
class SectorPainter {
public:
    static constexpr int32_t Width = 264; // pixels of the design
    static constexpr int32_t Height = 300;
    static constexpr int32_t BarHeight = 44; // below the map

    /// names: the font of towns and figures; a null one leaves them out. detail: picture pixels per
    /// design pixel. REQUIRES: sector and font outlive the painter.
    SectorPainter(const Sector& sector, const zel::Font* names, int32_t detail = 1);

    /// The picture, Width by Height and BarHeight in pixels of the design. Call it once.
    zel::BitmapData paint();

private:
    using Point = PencilSheet::Point;

    /// The part of the map that a name or a sign covers.
    struct Box {
        float left, top, right, bottom;
        bool meets(const Box& other) const {
            return left < other.right && other.left < right && top < other.bottom &&
                   other.top < bottom;
        }
    };

    /// What a name may cover; the front is the least harm.
    enum class Over : uint8_t { Nothing, Front, Everything };

    const Town* findTaskTown() const;
    bool isOnMap(const MapPoint& place) const;
    bool fitsAt(float metres) const;
    bool showsFront() const;
    Point at(const MapPoint& place) const;
    std::vector<Point> at(const std::vector<MapPoint>& places) const;
    void paintSea();
    void paintSquares();
    void coverFront(const std::vector<Point>& line);
    void paintFieldName();
    void paintTaskTown();
    void paintTowns();
    bool paintTown(const Town& town, Over over);
    bool name(Point place, std::string_view text, float gap, Over over);
    void paintWay();
    void paintRings();
    void paintBar();

    const Sector& sector;
    const zel::Font* names;
    std::vector<MapPoint> front;
    std::vector<Town> towns;
    const Town* taskTown; // one of them, or null
    float metresAPixel = 0;
    PencilSheet sheet;
    std::vector<Box> taken;
    std::vector<Box> frontBoxes;
};
