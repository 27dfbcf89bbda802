#include "engine/window/Window.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include "engine/core/System.h"
#include "engine/window/Platform.h"
#include "tests/engine/graphics/Pictures.h"
#include "tests/support/LogCapture.h"

namespace zel {

namespace {

TEST(Letterbox, KeepsTheDesignsShape) {
    const struct {
        int32_t width, height;
        bool centre;
        float scale, offsetX, offsetY;
        bool barsAtTop;
        const char* what;
    } cases[] = {
        {1600, 900, true, 900.0F / 768, 200, 0, false, "(1600 - 1024 * 900 / 768) / 2"},
        {1280, 1024, true, 1.25F, 0, 32, true, "(1024 - 768 * 1.25) / 2"},
        {1024, 768, true, 1, 0, 0, false, "no bars"},
        {1025, 768, true, 1, 1, 0, false, "half a pixel, rounded up"},
        {1600, 900, false, 900.0F / 768, 0, 0, false, "in the corner"},
    };
    for (const auto& window : cases) {
        const Letterbox box = letterbox(window.width, window.height, 1024, 768, window.centre);
        EXPECT_FLOAT_EQ(box.scale, window.scale) << window.what;
        EXPECT_EQ(box.offsetX, window.offsetX) << window.what;
        EXPECT_EQ(box.offsetY, window.offsetY) << window.what;
        EXPECT_EQ(box.barsAtTop, window.barsAtTop) << window.what;
    }
}

TEST(Platform, EndsTheTimersAndKeepsTheClock) {
    Platform::getInstance();
    EXPECT_EQ(SDL_WasInit(SDL_INIT_TIMER), 0U);
    const Uint32 before = SDL_GetTicks();
    system::sleepMilliseconds(50);
    EXPECT_GE(SDL_GetTicks(), before + 20);
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
    BitmapData data = plainPicture(side, side, 4, 127);
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
