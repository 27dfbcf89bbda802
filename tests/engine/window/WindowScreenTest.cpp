// The window, its OpenGL context and the canvas on a real display.
#include <gtest/gtest.h>

#include "engine/core/Clock.h"
#include "engine/core/System.h"
#include "engine/graphics/Bitmap.h"
#include "engine/graphics/Canvas.h"
#include "engine/graphics/ImageHandler.h"
#include "engine/window/Keyboard.h"
#include "engine/window/LongWork.h"
#include "engine/window/Mouse.h"
#include "engine/window/Platform.h"
#include "engine/window/Window.h"
#include "tests/engine/graphics/Pictures.h"
#include "tests/engine/window/Events.h"
#include "tests/engine/window/Shot.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryFolder.h"

namespace zel {

namespace {

constexpr uint32_t Red = 0xFFFF0000;
constexpr uint32_t Green = 0xFF00FF00;
constexpr uint32_t Blue = 0xFF0000FF;
constexpr uint32_t White = 0xFFFFFFFF;
constexpr uint32_t Black = 0xFF000000;

/// A picture of 2 by 2 pixels: red and green over blue and white; in a buffer of 4 by 4 if wanted.
void makePicture(Bitmap& bitmap, ChannelOrder order, int32_t depth, int32_t side = 2) {
    BitmapData data = plainPicture(side, side, depth, 0);
    data.pictureWidth = data.pictureHeight = 2;
    data.order = order;
    const uint32_t colors[2][2] = {{Red, Green}, {Blue, White}}; // from the top
    const int32_t redPlace = order == ChannelOrder::Rgb ? 0 : 2;
    for (int32_t y = 0; y < 2; ++y)
        for (int32_t x = 0; x < 2; ++x) {
            uint8_t* pixel = data.line(y) + x * depth;
            pixel[redPlace] = static_cast<uint8_t>(colors[y][x] >> 16);
            pixel[1] = static_cast<uint8_t>(colors[y][x] >> 8);
            pixel[2 - redPlace] = static_cast<uint8_t>(colors[y][x]);
            if (depth == 4)
                pixel[3] = 255;
        }
    ASSERT_TRUE(bitmap.assign(std::move(data), "picture"));
}

class WindowScreenTest : public testing::Test {
protected:
    void SetUp() override {
        open(1024, 768);
        makePicture(picture, ChannelOrder::Rgb, 3);
    }
    ~WindowScreenTest() override { Window::destroy(); }

    void open(int32_t width, int32_t height) {
        ASSERT_TRUE(Window::create(width, height, 32)) << log.text();
        Window::current()->setSimulatedResolution(1024, 768, true);
        canvas.clearWindow();
    }
    struct Spot {
        size_t x, y;
        uint32_t color;
        const char* what = "";
    };
    /// The colours of the window's pixels, counted from that position.
    static void expect(const std::vector<Spot>& spots, size_t x = 0, size_t y = 0) {
        const Shot shot;
        for (const Spot& spot : spots)
            EXPECT_EQ(shot.at(x + spot.x, y + spot.y), spot.color)
                << spot.x << ", " << spot.y << " " << spot.what;
    }
    /// Draws the picture at that position of the window, pixel for pixel.
    static void expectPicture(size_t x) {
        expect(
            {{0, 0, Red}, {1, 0, Green}, {0, 1, Blue}, {1, 1, White}, {2, 0, Black}, {0, 2, Black}},
            x);
    }
    /// Shows what was drawn. Returns whether it was sent to the display.
    bool isSent() {
        const int32_t before = canvas.getFramesSent();
        Window::current()->swapBuffers();
        return canvas.getFramesSent() > before;
    }
    static void send(const SDL_Event& event) { Platform::getInstance().handleEvent(event); }

    LogCapture log{LogInfo};
    Canvas& canvas = Canvas::getInstance();
    Bitmap picture;
};

TEST_F(WindowScreenTest, DrawsBitmapsOfEveryKind) {
    Bitmap others[3];
    makePicture(others[0], ChannelOrder::Bgr, 3);
    makePicture(others[1], ChannelOrder::Rgb, 4, 4);
    makePicture(others[2], ChannelOrder::Bgr, 4, 4);
    canvas.draw(picture, {0, 0, 2, 2});
    for (size_t place = 0; place < 3; ++place)
        canvas.draw(others[place], {100.0F * static_cast<float>(place + 1), 0, 2, 2});
    canvas.draw(picture, {2, 0, -2, 2}, {0, 100, 20, 20});
    const Corner turned[4] = {{20, 200, 0, 0}, {20, 220, 2, 0}, {0, 220, 2, 2}, {0, 200, 0, 2}};
    canvas.draw(picture, turned);
    for (size_t place = 0; place < 4; ++place)
        expectPicture(100 * place);
    expect({{2, 102, Green, "mirrored"}, {17, 102, Red}});
    expect({{17, 202, Red, "a quarter turn to the right"}, {17, 217, Green}, {2, 202, Blue}});
}

TEST_F(WindowScreenTest, StretchesAPictureWithoutItsBuffersRest) {
    Bitmap padded;
    makePicture(padded, ChannelOrder::Rgb, 3, 4);
    canvas.draw(picture, {0, 0, 20, 20});
    canvas.draw(padded, {100, 0, 20, 20});
    const Shot shot;
    for (size_t y = 0; y < 20; ++y)
        for (size_t x = 0; x < 20; ++x)
            ASSERT_EQ(shot.at(x, y), shot.at(100 + x, y)) << x << ", " << y;
}

TEST_F(WindowScreenTest, TintsFadesAddsAndClips) {
    const std::vector<Quad> quads{{{1, 1, 1, 1}, {0, 0, 10, 10}, 0xFF00FFFF},
                                  {{1, 1, 1, 1}, {10, 0, 10, 10}, White}};
    canvas.draw(picture, quads, {50, 50}, 0xFFFFFF00);
    canvas.fill({100, 100, 20, 20}, Red);
    canvas.setBlend(Blend::Additive);
    canvas.fill({100, 100, 10, 20}, Green);
    canvas.setBlend(Blend::Normal);
    canvas.setAlpha(51);
    canvas.fill({200, 100, 20, 20}, White);
    canvas.setAlpha(255);
    canvas.pushClip({300, 100, 10, 10});
    canvas.pushClip({305, 90, 100, 100});
    canvas.fill({0, 0, 1024, 768}, Blue);
    canvas.popClip();
    canvas.popClip();
    expect({{55, 55, Green, "cyan by yellow"}, {65, 55, 0xFFFFFF00}});
    expect({{105, 105, 0xFFFFFF00, "green added to red"}, {115, 105, Red}});
    expect({{205, 105, 0xFF333333, "a fifth"}});
    expect({{304, 105, Black}, {305, 105, Blue}, {309, 109, Blue}, {310, 109, Black}});
    expect({{305, 99, Black}});
}

TEST_F(WindowScreenTest, AScreenTakesOneCallATexture) {
    Bitmap font;
    makePicture(font, ChannelOrder::Rgb, 4);
    const std::vector<Quad> word(125, {{0, 0, 1, 1}, {0, 0, 8, 16}, White});
    for (int32_t frame = 0; frame < 2; ++frame) {
        canvas.clearWindow();
        for (float y = 0; y < 700; y += 100) {
            canvas.draw(picture, {0, y, 200, 60});
            canvas.draw(font, word, {20, y + 20});
        }
        Shot();
    }
    EXPECT_EQ(canvas.getDrawCalls(), 2);
    EXPECT_LE(canvas.getStateChanges(), 8);
}

TEST_F(WindowScreenTest, LeavesTheBarsBlack) {
    open(1200, 600);
    EXPECT_TRUE(log.holds("Vertical black lines, left and right black border"));
    EXPECT_TRUE(log.holds("height: 600 ; width: 1200"));
    const auto paint = [this] {
        canvas.clear(White);
        canvas.fill({-500, -500, 3000, 3000}, Red);
    };
    paint();
    // 200 pixels of bars on both sides, the scale is 0.78125
    expect({{199, 300, Black}, {200, 0, Red}, {999, 599, Red}, {1000, 300, Black}});
    EXPECT_EQ(Window::current()->toDesignX(200), 0);
    EXPECT_EQ(Window::current()->toDesignX(1000), 1024);
    EXPECT_EQ(Window::current()->toDesignY(300), 384);
    Window::current()->resize(800, 900);
    paint();
    expect({{400, 149, Black}, {0, 150, Red}, {799, 749, Red}, {400, 750, Black}});
}

TEST_F(WindowScreenTest, KeepsTheDesignWhenItIsResized) {
    canvas.draw(picture, {0, 0, 20, 20});
    Shot();
    SDL_Event resize{};
    resize.type = SDL_VIDEORESIZE;
    resize.resize.h = 600;
    for (const int32_t width : {1000, 900, 820}) { // as a dragged corner sends them
        resize.resize.w = width;
        send(resize);
    }
    Platform::getInstance().handleEvents();
    EXPECT_EQ(Window::current()->getRealWidth(), 820);
    EXPECT_EQ(Window::current()->getWidth(), 1024);
    canvas.clearWindow();
    canvas.draw(picture, {0, 0, 2.56F, 2.56F});
    expectPicture(10);
    SDL_EventState(SDL_MOUSEMOTION, SDL_IGNORE); // of the pointer that is on the display
    for (const auto& [inWindow, inDesign] :
         {std::pair(0, 0), {1, 1}, {2, 3}, {101, 129}, {102, 131}}) {
        send(motionEvent(10 + inWindow, inWindow));
        EXPECT_EQ(Mouse::getX(), inDesign) << "the nearest of 1.28 pixels to the window's one";
        EXPECT_EQ(Mouse::getY(), inDesign) << inWindow;
    }
    SDL_EventState(SDL_MOUSEMOTION, SDL_ENABLE);
}

TEST_F(WindowScreenTest, GoesToFullScreenAndBack) {
    for (const bool isFull : {true, false}) {
        send(keyEvent(SDLK_RETURN, 0, true, KMOD_LALT));
        Platform::getInstance().handleEvents();
        EXPECT_EQ(Window::current()->isFullscreen(), isFull);
    }
    EXPECT_EQ(Window::current()->getRealWidth(), 1024);
    Window::current()->setFullscreen(true);
    EXPECT_EQ(Window::current()->getRealWidth(), Platform::getInstance().getDesktopWidth());
    EXPECT_FALSE(Keyboard::isKeyDown(SDLK_RETURN)) << "its release may never come";
    Window::current()->setFullscreen(true);
    EXPECT_TRUE(Window::current()->isFullscreen());
    Window::current()->setFullscreen(false);
    EXPECT_FALSE(Window::current()->isFullscreen());
    EXPECT_EQ(Window::current()->getRealHeight(), 768);
    canvas.clearWindow();
    canvas.fill({0, 0, 10, 10}, Red);
    expect({{5, 5, Red}});
}

TEST_F(WindowScreenTest, SendsAFrameOnlyWhenItDiffers) {
    const auto frame = [&](uint32_t color) {
        canvas.clearWindow();
        canvas.draw(picture, {0, 0, 20, 20});
        canvas.fill({50, 50, 10, 10}, color);
        return isSent();
    };
    EXPECT_TRUE(frame(Red));
    EXPECT_FALSE(frame(Red));
    EXPECT_TRUE(frame(Blue));
    Window::current()->invalidate();
    EXPECT_TRUE(frame(Blue)) << "the window's content was lost";
    makePicture(picture, ChannelOrder::Bgr, 4);
    EXPECT_TRUE(frame(Blue)) << "another picture in the same place";
    EXPECT_FALSE(frame(Blue));
}

TEST_F(WindowScreenTest, SendsAnUnchangedFrameOnceASecond) {
    static uint32_t now;
    now = ticks();
    setTickSource([] { return now; });
    int32_t sent = -1; // the first one
    for (int32_t count = 0; count < 31; ++count) {
        now += 100;
        canvas.clearWindow();
        canvas.fill({50, 50, 10, 10}, Red);
        sent += isSent() ? 1 : 0;
    }
    setTickSource(nullptr);
    EXPECT_EQ(sent, 3);
}

TEST_F(WindowScreenTest, ShowsHowLongWorkGoes) {
    const int32_t before = canvas.getFramesSent();
    LongWork work;
    for (const float done : {100.0F, 200.0F})
        work.showFrame([&] { canvas.fill({0, 0, done, 10}, Red); });
    EXPECT_EQ(canvas.getFramesSent(), before + 2);
    expect({{195, 5, Red}, {205, 5, Black}});
}

TEST_F(WindowScreenTest, ShowsThePointerAndStaysWhereItIs) {
    EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_ENABLE);
    EXPECT_EQ(system::environment("SDL_VIDEO_CENTERED"), "")
        << "or each change of size would centre it";
}

TEST_F(WindowScreenTest, ABitmapMayGoBeforeItsFrameIsShown) {
    const int64_t before = Bitmap::graphicsMemory();
    {
        Bitmap passing;
        makePicture(passing, ChannelOrder::Rgb, 3);
        canvas.draw(passing, {0, 0, 20, 20});
        EXPECT_EQ(Bitmap::graphicsMemory(), before + 12);
    }
    EXPECT_EQ(Bitmap::graphicsMemory(), before);
    expect({{1, 1, Red, "a frame that waits still has it"}});
    Window::current()->swapBuffers();
    canvas.clearWindow();
    canvas.fill({50, 50, 10, 10}, Red);
    expect({{1, 1, Black}, {55, 55, Red}});
}

// A screen that has faded in is on the display while the one before it is left.
TEST_F(WindowScreenTest, ShortLivedBitmapsOnScreenAreKept) {
    const TemporaryFolder folder;
    folder.write("shown.zel", zelFile(2, 2, 24, std::string(12, '\x55')));
    ImageHandler& handler = ImageHandler::getInstance();
    const Image* image = handler.getImage(folder.path() + "/shown.zel");
    ASSERT_NE(image, nullptr);
    const int64_t before = Bitmap::graphicsMemory();
    canvas.draw(image->getBitmap(), {0, 0, 20, 20});
    const int64_t drawn = Bitmap::graphicsMemory();
    EXPECT_GT(drawn, before);
    handler.releaseShortLived();
    EXPECT_EQ(Bitmap::graphicsMemory(), drawn) << "in the frame that waits";
    EXPECT_TRUE(isSent());
    handler.releaseShortLived();
    EXPECT_EQ(Bitmap::graphicsMemory(), drawn) << "in the frame that is shown";
    canvas.clearWindow();
    EXPECT_TRUE(isSent());
    handler.releaseShortLived();
    EXPECT_EQ(Bitmap::graphicsMemory(), before);
    handler.clear();
}

TEST_F(WindowScreenTest, ABitmapOutlivesItsWindow) {
    canvas.draw(picture, {0, 0, 20, 20});
    Window::destroy();
    EXPECT_TRUE(log.holds("closing window"));
    canvas.draw(picture, {0, 0, 20, 20}); // nothing to draw on, and nothing happens
    EXPECT_TRUE(canvas.readPixels().empty());
    open(800, 600);
    canvas.clearWindow();
    canvas.draw(picture, {0, 0, 2.56F, 2.56F});
    expectPicture(0);
}

} // namespace

} // namespace zel
