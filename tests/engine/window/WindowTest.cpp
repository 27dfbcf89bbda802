#include "engine/window/Window.h"

#include <SDL.h>
#ifdef _WIN32
#include <windows.h>
#endif
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

TEST(WindowFit, KeepsTheShape) {
    const struct {
        system::Extent wanted, room, size;
        const char* what;
    } cases[] = {
        {{1024, 768}, {1280, 934}, {1024, 768}, "room enough"},
        {{1024, 768}, {1024, 768}, {1024, 768}, "just enough"},
        {{1024, 768}, {1366, 672}, {896, 672}, "too low: 672 / 3 * 4"},
        {{1024, 768}, {1366, 671}, {892, 669}, "in whole pixels of the shape"},
        {{1024, 768}, {800, 1000}, {800, 600}, "too narrow"},
        {{1000, 500}, {1366, 400}, {800, 400}, "another shape"},
        {{1024, 768}, {0, 0}, {1024, 768}, "unknown"},
        {{1024, 768}, {1366, 2}, {1024, 768}, "no room worth the name"},
    };
    for (const auto& [wanted, room, size, what] : cases) {
        const system::Extent fitting = fittingSize(wanted, room);
        EXPECT_EQ(fitting.width, size.width) << what;
        EXPECT_EQ(fitting.height, size.height) << what;
    }
}

#ifndef _WIN32
TEST(WindowFit, LeavesRoomForFrameAndBars) {
    const String before = system::environment("XDG_CURRENT_DESKTOP");
    system::setEnvironment("XDG_CURRENT_DESKTOP", "");
    EXPECT_EQ(system::roomForWindow({1366, 768}).height, 768) << "a bare display";
    system::setEnvironment("XDG_CURRENT_DESKTOP", "GNOME");
    EXPECT_EQ(system::roomForWindow({1366, 768}).width, 1366);
    EXPECT_LE(system::roomForWindow({1366, 768}).height, 768 - 90);
    EXPECT_EQ(system::roomForWindow({0, 0}).height, 0) << "unknown";
    system::setEnvironment("XDG_CURRENT_DESKTOP", before);
}
#else
TEST(WindowFit, LeavesRoomForFrameAndBars) {
    const system::Extent room = system::roomForWindow({});
    EXPECT_GT(room.height, 0);
    EXPECT_LE(room.height, GetSystemMetrics(SM_CYSCREEN) - GetSystemMetrics(SM_CYCAPTION));
    EXPECT_LT(room.width, GetSystemMetrics(SM_CXSCREEN));
}
#endif

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

/// A picture that is opaque only on the diagonal from upper left to lower right.
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
