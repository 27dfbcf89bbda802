#include "engine/menu/style/LayoutImage.h"

#include <gtest/gtest.h>

#include "engine/menu/style/LayoutHandler.h"
#include "tests/engine/graphics/Pictures.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

using namespace zel;

namespace {

/// A picture made of letters, the top line first: r, g, b are colours, "." is transparent.
BitmapData painted(const std::vector<std::string>& lines) {
    const auto height = static_cast<int32_t>(lines.size());
    BitmapData data = plainPicture(static_cast<int32_t>(lines.front().size()), height, 4, 0);
    for (int32_t y = 0; y < height; ++y) {
        uint8_t* byte = data.line(y);
        for (const char letter : lines[static_cast<size_t>(y)])
            for (const char channel : {'r', 'g', 'b', '.'})
                *byte++ = (letter == channel) != (channel == '.') ? 255 : 0;
    }
    return data;
}

using Numbers = std::vector<int32_t>;

Numbers numbers(const PixelRect& place) { return {place.x, place.y, place.width, place.height}; }

} // namespace

TEST(LayoutIndex, ReadsElementsAndReportsFaults) {
    const LogCapture log;
    const LayoutIndex index = parseLayoutIndex(
        "pickcolor #ff0000\r\nlayout main\r\nwidget a\r\npickcolor ff0000\npickcolor #ff00\nalign "
        "up\n"
        "nonsense\n\ntextarea b\nPickColor #FF0010\nalign right\nscrollin 1 -2 3.9\n"
        "scrollout 4 5 6\nwidget\nscrollin 7 8 9\n",
        "x.idx");
    ASSERT_EQ(index.elements.size(), 2U);
    EXPECT_FALSE(index.elements[0].color || index.elements[0].isTextArea);
    const PaintedElement& area = index.elements[1];
    EXPECT_TRUE(area.isTextArea && area.color == 0xFF0010U);
    EXPECT_EQ(area.definition.alignment, AlignRight);
    EXPECT_EQ(area.definition.scrollIn.x, 1) << "a refused element gives it nothing";
    EXPECT_EQ(area.definition.scrollIn.y, -2);
    EXPECT_EQ(area.definition.scrollIn.time, 3.0F) << "an integer";
    EXPECT_EQ(area.definition.scrollOut.y, 5);
    for (const char* line :
         {"!! ", "[LayoutHandler] loadLayout index x.idx pickcolor without element",
          "loadLayout index x.idx pickcolor must start with #",
          "loadLayout index x.idx pickcolor expects # with a 6-digit hex", "Unknown line align up",
          "Unknown line nonsense", "Unknown line widget", "Unknown line scrollin 7 8 9"})
        EXPECT_TRUE(log.holds(line)) << line;
}

TEST(LayoutImage, FindsBoxesFromTheUpperLeftCorner) {
    const BitmapData data = painted({"........", ".rr.....", ".rr..g..", ".....r..", ".....bb."});
    const std::vector<PaintedBox> boxes =
        findBoxes(data, {0xFF0000, 0x00FF00, 0x0000FF, 0xFF0000, 0x123456, 0x000000});
    EXPECT_EQ(numbers(boxes[0].rect), (Numbers{1, 1, 5, 3}));
    EXPECT_EQ(numbers(boxes[1].rect), (Numbers{5, 2, 1, 1})) << "one pixel is one by one";
    EXPECT_EQ(numbers(boxes[2].rect), (Numbers{5, 4, 2, 1}));
    EXPECT_EQ(numbers(boxes[3].rect), numbers(boxes[0].rect))
        << "a shared colour gives the same box";
    EXPECT_FALSE(boxes[4].isFound);
    EXPECT_FALSE(boxes[5].isFound) << "transparent black isn't a colour";
}

TEST(LayoutImage, TellsWhatIsMissing) {
    const LogCapture log;
    const TemporaryFolder folder;
    LayoutHandler::release();
    LayoutHandler& handler = LayoutHandler::getInstance();
    handler.loadLayout("x.png");
    EXPECT_TRUE(log.holds("[LayoutHandler] defineWidget() without layout"));
    handler.defineLayout("Main");
    handler.loadLayout(folder.file("none.png"));
    EXPECT_TRUE(log.holds("loadLayout image " + folder.file("none.png") + " failed: "));
    // A red and a green pixel, the row padded to 8 bytes.
    const std::string bitmap = bmpFile(2, 1, 24, std::string_view("\0\0\xff\0\xff\0\0\0", 8));
    const std::string image = folder.write("two.bmp", bitmap);
    handler.loadLayout(image);
    EXPECT_TRUE(log.holds("loadLayout index " + folder.file("two.idx") + " failed"));
    folder.write("two.idx", "resolution 20 30\nwidget a\npickcolor #ff0000\nwidget b\n"
                            "pickcolor #00ff00\nwidget c\npickcolor #0000ff\n");
    handler.loadLayout(image);
    EXPECT_TRUE(log.holds(" w ") &&
                log.holds("layout=Main element=c defined, but not found in layout image"));
    const Layout* layout = handler.find("main");
    ASSERT_NE(layout, nullptr);
    ASSERT_EQ(layout->widgets.count("b"), 1U);
    EXPECT_EQ(numbers(layout->widgets.at("b").rect), (Numbers{10, 0, 10, 30}))
        << "20 design pixels over 2 of the image";
    LayoutHandler::release();
}
