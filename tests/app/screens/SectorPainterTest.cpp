// The towns on the map of the orders.
#include "app/screens/SectorPainter.h"

#include <gtest/gtest.h>

#include "engine/graphics/Font.h"

namespace {

struct NamedTown {
    const char* name;
    Sector sector;
    int32_t x, y; // of its dot, in pixels from the upper left, as seen on the picture
};

// Only a town with a name has a dot.
TEST(SectorPainter, NamesTheTownOfTheTask) {
    const MapPoint toul{33006, 288296};
    const NamedTown cases[] = {
        {"Pont-a-Mousson, next to Thiaucourt",
         {19170402, false, toul, "Toul", {49636, 295184}},
         166,
         37},
        {"St. Mihiel, on the front", {19180401, false, toul, "Toul", {50499, 268783}}, 30, 62},
        {"Hazebrouck, in the ring",
         {19180401, true, {50428, 172919}, "St. Omer", {41904, 182135}},
         161,
         156},
    };
    const zel::Font* const font = zel::FontHandler::getFont("Fonts/map18");
    ASSERT_NE(font, nullptr);
    for (const NamedTown& town : cases) {
        const zel::BitmapData picture = SectorPainter(town.sector, font).paint();
        const uint8_t* const pixel = picture.line(town.y) + town.x * picture.depth;
        EXPECT_GT(pixel[3], 200) << town.name;
        EXPECT_LT(pixel[0] + pixel[1] + pixel[2], 150) << town.name;
    }
}

} // namespace
