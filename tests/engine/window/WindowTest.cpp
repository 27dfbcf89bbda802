#include "engine/core/Window.h"

#include <gtest/gtest.h>

#include "engine/core/System.h"
#include "engine/graphics/Bitmap.h"
#include "tests/support/LogCapture.h"

namespace zel {

namespace {

TEST(Letterbox, KeepsTheDesignsShape) {
    const Letterbox wide = letterbox(1600, 900, 1024, 768, true);
    EXPECT_FLOAT_EQ(wide.scale, 900.0F / 768);
    EXPECT_EQ(wide.offsetX, 200) << "(1600 - 1024 * 900 / 768) / 2";
    EXPECT_EQ(wide.offsetY, 0);
    EXPECT_FALSE(wide.barsAtTop);

    const Letterbox tall = letterbox(1280, 1024, 1024, 768, true);
    EXPECT_FLOAT_EQ(tall.scale, 1.25F);
    EXPECT_EQ(tall.offsetX, 0);
    EXPECT_EQ(tall.offsetY, 32) << "(1024 - 768 * 1.25) / 2";
    EXPECT_TRUE(tall.barsAtTop);

    const Letterbox same = letterbox(1024, 768, 1024, 768, true);
    EXPECT_EQ(same.scale, 1);
    EXPECT_EQ(same.offsetX, 0);
    EXPECT_EQ(same.offsetY, 0);
}

TEST(Letterbox, RoundsUpAndCentresOnRequest) {
    EXPECT_EQ(letterbox(1025, 768, 1024, 768, true).offsetX, 1) << "half a pixel";
    const Letterbox corner = letterbox(1600, 900, 1024, 768, false);
    EXPECT_EQ(corner.offsetX, 0);
    EXPECT_FLOAT_EQ(corner.scale, 900.0F / 768);
}

TEST(Window, IsNotThereWithoutADisplay) {
    system::setEnvironment("DISPLAY", "");
    if (!system::hasDisplay()) // else it stays the one without pictures
        system::setEnvironment("SDL_VIDEODRIVER", "");
    LogCapture log;
    EXPECT_FALSE(Window::create(1024, 768, 32));
    EXPECT_EQ(Window::current(), nullptr);
    EXPECT_TRUE(log.holds("[Window] SDL_SetVideoMode failed")) << log.text();
}

TEST(Window, OpensWebAddressesOnly) {
    LogCapture log;
    Window::openUrl("file:///etc/passwd");
    Window::openUrl("--help");
    Window::openUrl("https://localhost/"); // the name of a state, if anything
    EXPECT_EQ(log.linesWith("Not a web address"), 3);
}

/// A picture that is opaque on its upper left to lower right line alone.
void makeDiagonal(Bitmap& picture, int32_t side) {
    BitmapData data;
    data.width = data.height = data.pictureWidth = data.pictureHeight = side;
    data.depth = 4;
    data.pixels.assign(data.rowSize() * static_cast<size_t>(side), 127);
    for (int32_t place = 0; place < side; ++place)
        data.line(place)[place * 4 + 3] = 128;
    ASSERT_TRUE(picture.assign(std::move(data), "diagonal"));
}

TEST(WindowIcon, ShowsWhatIsHalfOpaque) {
    Bitmap picture;
    makeDiagonal(picture, 9);
    EXPECT_EQ(iconMask(picture), (std::vector<uint8_t>{0x80, 0, 0x40, 0, 0x20, 0, 0x10, 0, 8, 0, 4,
                                                       0, 2, 0, 1, 0, 0, 0x80}));
}

TEST(WindowIcon, HasOneSize) {
    LogCapture log;
    Bitmap picture;
    makeDiagonal(picture, 32);
    Window::setIcon(picture);
    EXPECT_EQ(log.linesWith("[Window]"), 0);
    makeDiagonal(picture, 9);
    Window::setIcon(picture);
    EXPECT_EQ(log.linesWith("[Window] Icon diagonal is not 32 by 32 pixels"), 1);
}

} // namespace

} // namespace zel
