#include "engine/menu/LayoutImage.h"

#include <gtest/gtest.h>

#include "engine/graphics/Bitmap.h"
#include "engine/menu/LayoutHandler.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"
#include "tests/support/TemporaryFolder.h"

using namespace zel;

namespace {

constexpr std::string_view GoodIndex = "layout main\r\n"
                                       "resolution 1024 768\r\n"
                                       "widget ok\n"
                                       "PickColor #FF0000\n"
                                       "scrollin -10 20 3\n"
                                       "align right\n"
                                       "\n"
                                       "textarea story\n"
                                       "pickcolor #00ff00\n"
                                       "scrollout 1 2 3\n";

/// A picture out of letters, the top line first: r, g, b are colours, "." is transparent.
BitmapData painted(const std::vector<std::string>& lines) {
    BitmapData data;
    data.width = data.pictureWidth = static_cast<int32_t>(lines.front().size());
    data.height = data.pictureHeight = static_cast<int32_t>(lines.size());
    data.depth = 4;
    for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
        for (const char letter : *line) {
            data.pixels.push_back(letter == 'r' ? 255 : 0);
            data.pixels.push_back(letter == 'g' ? 255 : 0);
            data.pixels.push_back(letter == 'b' ? 255 : 0);
            data.pixels.push_back(letter == '.' ? 0 : 255);
        }
    }
    return data;
}

std::vector<int32_t> numbers(const PaintedBox& box) {
    return {box.place.x, box.place.y, box.place.width, box.place.height};
}

} // namespace

TEST(LayoutIndex, ReadsElements) {
    const LayoutIndex index = parseLayoutIndex(GoodIndex, "main.idx");
    ASSERT_EQ(index.elements.size(), 2U);
    EXPECT_EQ(index.width, 1024);
    EXPECT_EQ(index.height, 768);
    const PaintedElement& widget = index.elements[0];
    EXPECT_EQ(widget.definition.name, "ok");
    EXPECT_FALSE(widget.isTextArea);
    EXPECT_EQ(widget.color, 0xFF0000U);
    EXPECT_EQ(widget.definition.scrollIn.x, -10);
    EXPECT_EQ(widget.definition.scrollIn.y, 20);
    EXPECT_EQ(widget.definition.alignment, AlignRight);
    EXPECT_TRUE(index.elements[1].isTextArea);
    EXPECT_EQ(index.elements[1].definition.scrollOut.y, 2);
}

TEST(LayoutIndex, TellsFaultsAndGoesOn) {
    const LogCapture log;
    const LayoutIndex index = parseLayoutIndex("pickcolor #ff0000\nwidget a\npickcolor ff0000\n"
                                               "pickcolor #ff00\nalign up\nnonsense\nwidget b\n",
                                               "x.idx");
    EXPECT_EQ(index.elements.size(), 2U);
    EXPECT_FALSE(index.elements[0].color);
    EXPECT_TRUE(log.holds("!! ") && log.holds("[LayoutHandler] loadLayout index x.idx pickcolor "
                                              "without element"));
    EXPECT_TRUE(log.holds("loadLayout index x.idx pickcolor must start with #"));
    EXPECT_TRUE(log.holds("loadLayout index x.idx pickcolor expects # with a 6-digit hex"));
    EXPECT_TRUE(log.holds("Unknown line align up"));
    EXPECT_TRUE(log.holds("Unknown line nonsense"));
}

TEST(LayoutIndex, GivesNothingToARefusedElement) {
    const LogCapture log;
    const LayoutIndex index = parseLayoutIndex("widget a\nscrollin 1 2 3.9\nwidget\n"
                                               "pickcolor #ff0000\nscrollin 7 8 9\n",
                                               "x.idx");
    ASSERT_EQ(index.elements.size(), 1U);
    EXPECT_FALSE(index.elements[0].color);
    EXPECT_EQ(index.elements[0].definition.scrollIn.x, 1);
    EXPECT_EQ(index.elements[0].definition.scrollIn.time, 3.0F) << "an integer";
    EXPECT_EQ(log.linesWith("Unknown line widget"), 1);
    EXPECT_EQ(log.linesWith("pickcolor without element"), 1);
    EXPECT_EQ(log.linesWith("Unknown line scrollin 7 8 9"), 1);
}

TEST(LayoutIndex, ReadsACutFile) {
    const LogCapture log;
    for (size_t length = 0; length <= GoodIndex.size(); ++length) {
        const LayoutIndex index = parseLayoutIndex(GoodIndex.substr(0, length), "cut");
        EXPECT_LE(index.elements.size(), 2U) << length;
        EXPECT_LE(index.width, 1024) << length;
    }
}

TEST(LayoutImage, FindsBoxesFromTheUpperLeftCorner) {
    const BitmapData data = painted({"........", ".rr.....", ".rr..g..", ".....r..", ".....bb."});
    const std::vector<PaintedBox> boxes =
        findBoxes(data, {0xFF0000, 0x00FF00, 0x0000FF, 0xFF0000, 0x123456, 0x000000});
    using Numbers = std::vector<int32_t>;
    EXPECT_EQ(numbers(boxes[0]), (Numbers{1, 1, 5, 3}));
    EXPECT_EQ(numbers(boxes[1]), (Numbers{5, 2, 1, 1})) << "one pixel is one by one";
    EXPECT_EQ(numbers(boxes[2]), (Numbers{5, 4, 2, 1}));
    EXPECT_EQ(numbers(boxes[3]), numbers(boxes[0])) << "a shared colour gives the same box";
    EXPECT_FALSE(boxes[4].isFound);
    EXPECT_FALSE(boxes[5].isFound) << "transparent black is no colour";
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
    // A 24-bit bitmap of 2 by 1: a red and a green pixel, the row padded to 8 bytes.
    std::string bitmap("BM\x3e\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\2\0\0\0\1\0\0\0\1\0\x18\0", 30);
    bitmap += std::string(24, '\0') + std::string("\0\0\xff\0\xff\0\0\0", 8);
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
    const Place place = layout->widgets.at("b").place;
    EXPECT_EQ(place.x, 10) << "20 design pixels over 2 of the image";
    EXPECT_EQ(place.width, 10);
    EXPECT_EQ(place.height, 30);
    LayoutHandler::release();
}
