// The window, its OpenGL context and the canvas on a real display.

#include <SDL.h>
#include <gtest/gtest.h>

#include "engine/core/Clock.h"
#include "engine/core/Keyboard.h"
#include "engine/core/Mouse.h"
#include "engine/core/Platform.h"
#include "engine/core/System.h"
#include "engine/core/Window.h"
#include "engine/graphics/Bitmap.h"
#include "engine/graphics/Canvas.h"
#include "tests/support/LogCapture.h"
#include "tests/support/ProcessorTime.h"

namespace zel {

namespace {

constexpr uint32_t Red = 0xFFFF0000;
constexpr uint32_t Green = 0xFF00FF00;
constexpr uint32_t Blue = 0xFF0000FF;
constexpr uint32_t White = 0xFFFFFFFF;
constexpr uint32_t Black = 0xFF000000;

/// The window's picture so far.
class Shot {
public:
    Shot()
        : pixels(Canvas::getInstance().readPixels()),
          width(static_cast<size_t>(Window::current()->getRealWidth())) {}
    /// ARGB of a window pixel, y down.
    uint32_t at(size_t x, size_t y) const {
        const uint8_t* pixel = pixels.data() + (y * width + x) * 3;
        return 0xFF000000 | uint32_t(pixel[0]) << 16 | uint32_t(pixel[1]) << 8 | pixel[2];
    }

private:
    std::vector<uint8_t> pixels;
    size_t width;
};

/// A picture of 2 by 2 pixels: red and green over blue and white; in a buffer of 4 by 4 if wanted.
void makePicture(Bitmap& bitmap, ChannelOrder order, int32_t depth, int32_t side = 2) {
    BitmapData data;
    data.width = data.height = side;
    data.pictureWidth = data.pictureHeight = 2;
    data.depth = depth;
    data.order = order;
    data.pixels.resize(data.rowSize() * static_cast<size_t>(side));
    const uint32_t colors[2][2] = {{Red, Green}, {Blue, White}}; // from the top
    for (size_t y = 0; y < 2; ++y)
        for (size_t x = 0; x < 2; ++x) {
            const uint32_t color = colors[y][x];
            uint8_t* pixel = data.pixels.data() +
                             (static_cast<size_t>(side) - 1 - y) * data.rowSize() +
                             x * static_cast<size_t>(depth);
            const bool redFirst = order == ChannelOrder::Rgb;
            pixel[redFirst ? 0 : 2] = static_cast<uint8_t>(color >> 16);
            pixel[1] = static_cast<uint8_t>(color >> 8);
            pixel[redFirst ? 2 : 0] = static_cast<uint8_t>(color);
            if (depth == 4)
                pixel[3] = 255;
        }
    ASSERT_TRUE(bitmap.assign(std::move(data), "picture"));
}

class WindowScreenTest : public testing::Test {
protected:
    void SetUp() override { open(1024, 768); }
    ~WindowScreenTest() override { Window::destroy(); }

    void open(int32_t width, int32_t height) {
        ASSERT_TRUE(Window::create(width, height, 32)) << log.text();
        Window::current()->setSimulatedResolution(1024, 768, true);
        canvas.clearWindow();
    }
    /// The picture at that place of the window, pixel for pixel.
    void expectPicture(const Shot& shot, size_t x, size_t y) {
        EXPECT_EQ(shot.at(x, y), Red);
        EXPECT_EQ(shot.at(x + 1, y), Green);
        EXPECT_EQ(shot.at(x, y + 1), Blue);
        EXPECT_EQ(shot.at(x + 1, y + 1), White);
        EXPECT_EQ(shot.at(x + 2, y), Black);
        EXPECT_EQ(shot.at(x, y + 2), Black);
    }

    LogCapture log{LogInfo};
    Canvas& canvas = Canvas::getInstance();
};

TEST_F(WindowScreenTest, FillsToThePixel) {
    canvas.fill({100, 50, 10, 20}, Red);
    canvas.fill({200, 50, 10, 10}, 0x80FFFFFF);
    const Shot shot;
    EXPECT_EQ(shot.at(100, 50), Red);
    EXPECT_EQ(shot.at(109, 69), Red);
    EXPECT_EQ(shot.at(99, 50), Black);
    EXPECT_EQ(shot.at(110, 50), Black);
    EXPECT_EQ(shot.at(100, 49), Black);
    EXPECT_EQ(shot.at(100, 70), Black);
    EXPECT_EQ(shot.at(205, 55), 0xFF808080) << "half of white over black";
}

TEST_F(WindowScreenTest, DrawsBitmapsOfEveryKind) {
    Bitmap pictures[4];
    makePicture(pictures[0], ChannelOrder::Rgb, 3);
    makePicture(pictures[1], ChannelOrder::Bgr, 3);
    makePicture(pictures[2], ChannelOrder::Rgb, 4, 4);
    makePicture(pictures[3], ChannelOrder::Bgr, 4, 4);
    for (size_t place = 0; place < 4; ++place)
        canvas.draw(pictures[place], {100.0F * static_cast<float>(place), 0, 2, 2});
    canvas.draw(pictures[0], {2, 0, -2, 2}, {0, 100, 20, 20});
    const Corner turned[4] = {{20, 200, 0, 0}, {20, 220, 2, 0}, {0, 220, 2, 2}, {0, 200, 0, 2}};
    canvas.draw(pictures[0], turned);
    const Shot shot;
    for (size_t place = 0; place < 4; ++place)
        expectPicture(shot, 100 * place, 0);
    EXPECT_EQ(shot.at(2, 102), Green) << "mirrored";
    EXPECT_EQ(shot.at(17, 102), Red);
    EXPECT_EQ(shot.at(17, 202), Red) << "a quarter turn to the right";
    EXPECT_EQ(shot.at(17, 217), Green);
    EXPECT_EQ(shot.at(2, 202), Blue);
}

TEST_F(WindowScreenTest, StretchesAPictureWithoutItsBuffersRest) {
    Bitmap plain;
    Bitmap padded;
    makePicture(plain, ChannelOrder::Rgb, 3);
    makePicture(padded, ChannelOrder::Rgb, 3, 4);
    canvas.draw(plain, {0, 0, 20, 20});
    canvas.draw(padded, {100, 0, 20, 20});
    const Shot shot;
    for (size_t y = 0; y < 20; ++y)
        for (size_t x = 0; x < 20; ++x)
            ASSERT_EQ(shot.at(x, y), shot.at(100 + x, y)) << x << ", " << y;
}

TEST_F(WindowScreenTest, TintsFadesAddsAndClips) {
    Bitmap picture;
    makePicture(picture, ChannelOrder::Rgb, 3);
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
    const Shot shot;
    EXPECT_EQ(shot.at(55, 55), Green) << "cyan by yellow";
    EXPECT_EQ(shot.at(65, 55), 0xFFFFFF00);
    EXPECT_EQ(shot.at(105, 105), 0xFFFFFF00) << "green added to red";
    EXPECT_EQ(shot.at(115, 105), Red);
    EXPECT_EQ(shot.at(205, 105), 0xFF333333) << "a fifth";
    EXPECT_EQ(shot.at(304, 105), Black);
    EXPECT_EQ(shot.at(305, 105), Blue);
    EXPECT_EQ(shot.at(309, 109), Blue);
    EXPECT_EQ(shot.at(310, 109), Black);
    EXPECT_EQ(shot.at(305, 99), Black);
}

TEST_F(WindowScreenTest, KeepsTheOrderOfWhatOverlaps) {
    Bitmap picture;
    makePicture(picture, ChannelOrder::Rgb, 3);
    canvas.fill({0, 0, 100, 100}, Red);
    canvas.draw(picture, {10, 10, 50, 50});
    canvas.fill({20, 20, 10, 10}, Blue); // on the picture: it can't join the first run
    canvas.fill({500, 0, 10, 10}, Blue);
    const Shot shot;
    EXPECT_EQ(shot.at(5, 5), Red);
    EXPECT_EQ(shot.at(15, 55), Blue) << "the picture's lower left";
    EXPECT_EQ(shot.at(55, 55), White);
    EXPECT_EQ(shot.at(25, 25), Blue);
    EXPECT_EQ(shot.at(505, 5), Blue);
    EXPECT_EQ(canvas.getDrawCalls(), 3);
}

TEST_F(WindowScreenTest, AScreenTakesOneCallATexture) {
    Bitmap background;
    Bitmap button;
    Bitmap font;
    for (Bitmap* bitmap : {&background, &button, &font})
        makePicture(*bitmap, ChannelOrder::Rgb, 4);
    const std::vector<Quad> word(125, {{0, 0, 1, 1}, {0, 0, 8, 16}, White});
    for (int32_t frame = 0; frame < 2; ++frame) {
        canvas.clearWindow();
        canvas.draw(background, {0, 0, 1024, 768});
        for (int32_t count = 0; count < 24; ++count) {
            const int32_t place = count * 7 % 24; // in the order of names, not of places
            const Point corner{static_cast<float>(place % 4 * 250),
                               static_cast<float>(place / 4 * 100)};
            canvas.draw(button, {corner.x, corner.y, 200, 60});
            canvas.draw(font, word, {corner.x + 20, corner.y + 20});
        }
        Shot();
    }
    EXPECT_EQ(canvas.getDrawCalls(), 3);
    EXPECT_LE(canvas.getStateChanges(), 12);
}

TEST_F(WindowScreenTest, LeavesTheBarsBlack) {
    open(1200, 600);
    EXPECT_TRUE(log.holds("Vertical black lines, left and right black border"));
    EXPECT_TRUE(log.holds("height: 600 ; width: 1200"));
    canvas.clear(White);
    canvas.fill({-500, -500, 3000, 3000}, Red);
    const Shot shot; // 200 pixels of bars on both sides, the scale is 0.78125
    EXPECT_EQ(shot.at(199, 300), Black);
    EXPECT_EQ(shot.at(200, 0), Red);
    EXPECT_EQ(shot.at(999, 599), Red);
    EXPECT_EQ(shot.at(1000, 300), Black);
    EXPECT_EQ(Window::current()->toDesignX(200), 0);
    EXPECT_EQ(Window::current()->toDesignX(1000), 1024);
    EXPECT_EQ(Window::current()->toDesignY(300), 384);
    EXPECT_EQ(Window::current()->getWidth(), 1024);
    EXPECT_EQ(Window::current()->getRealWidth(), 1200);
}

TEST_F(WindowScreenTest, KeepsTheDesignWhenItIsResized) {
    Bitmap picture;
    makePicture(picture, ChannelOrder::Rgb, 3);
    canvas.draw(picture, {0, 0, 20, 20});
    Shot();
    SDL_Event event{};
    event.type = SDL_VIDEORESIZE;
    for (const int32_t width : {700, 600, 512}) { // as a dragged corner sends them
        event.resize.w = width;
        event.resize.h = 384;
        Platform::getInstance().handleEvent(event);
    }
    Platform::getInstance().handleEvents();
    EXPECT_EQ(Window::current()->getRealWidth(), 512);
    EXPECT_EQ(Window::current()->getWidth(), 1024);
    canvas.clearWindow();
    canvas.draw(picture, {0, 0, 4, 4});
    expectPicture(Shot(), 0, 0);
    SDL_EventState(SDL_MOUSEMOTION, SDL_IGNORE); // of the pointer that lies on the display
    event.type = SDL_MOUSEMOTION;
    event.motion.x = 256;
    event.motion.y = 192;
    Platform::getInstance().handleEvent(event);
    EXPECT_EQ(Mouse::getX(), 512);
    EXPECT_EQ(Mouse::getY(), 384);
    SDL_EventState(SDL_MOUSEMOTION, SDL_ENABLE);
}

TEST_F(WindowScreenTest, GoesToFullScreenAndBack) {
    SDL_Event event{};
    event.type = SDL_KEYDOWN;
    event.key.keysym.sym = SDLK_RETURN;
    event.key.keysym.mod = KMOD_LALT;
    Platform::getInstance().handleEvent(event);
    Platform::getInstance().handleEvents();
    EXPECT_TRUE(Window::current()->isFullscreen());
    Platform::getInstance().handleEvent(event);
    Platform::getInstance().handleEvents();
    EXPECT_FALSE(Window::current()->isFullscreen());
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
    EXPECT_EQ(Shot().at(5, 5), Red);
}

TEST_F(WindowScreenTest, SendsAFrameOnlyWhenItDiffers) {
    Window& window = *Window::current();
    Bitmap picture;
    makePicture(picture, ChannelOrder::Rgb, 3);
    const auto frame = [&](uint32_t color) {
        canvas.clearWindow();
        canvas.draw(picture, {0, 0, 20, 20});
        canvas.fill({50, 50, 10, 10}, color);
        const int32_t before = canvas.getFramesSent();
        window.swapBuffers();
        return canvas.getFramesSent() - before;
    };
    EXPECT_EQ(frame(Red), 1);
    EXPECT_EQ(frame(Red), 0);
    EXPECT_EQ(frame(Blue), 1);
    window.invalidate();
    EXPECT_EQ(frame(Blue), 1) << "the window's content was lost";
    makePicture(picture, ChannelOrder::Bgr, 4);
    EXPECT_EQ(frame(Blue), 1) << "another picture in the same place";
    EXPECT_EQ(frame(Blue), 0);
}

TEST_F(WindowScreenTest, SendsAnUnchangedFrameOnceASecond) {
    static uint32_t now;
    now = ticks();
    setTickSource([] { return now; });
    const auto frame = [&] {
        now += 100;
        canvas.clearWindow();
        canvas.fill({50, 50, 10, 10}, Red);
        const int32_t before = canvas.getFramesSent();
        Window::current()->swapBuffers();
        return canvas.getFramesSent() - before;
    };
    frame();
    int32_t sent = 0;
    for (int32_t count = 0; count < 30; ++count)
        sent += frame();
    setTickSource(nullptr);
    EXPECT_EQ(sent, 3);
}

TEST_F(WindowScreenTest, ShowsThePointerAndStaysWhereItIs) {
    EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_ENABLE);
    EXPECT_EQ(system::environment("SDL_VIDEO_CENTERED"), "")
        << "or each change of size would centre it";
}

TEST_F(WindowScreenTest, ABitmapMayGoBeforeItsFrameIsShown) {
    const int64_t before = Bitmap::graphicsMemory();
    {
        Bitmap picture;
        makePicture(picture, ChannelOrder::Rgb, 3);
        canvas.draw(picture, {0, 0, 20, 20});
        EXPECT_EQ(Bitmap::graphicsMemory(), before + 12);
    }
    EXPECT_EQ(Bitmap::graphicsMemory(), before);
    canvas.fill({50, 50, 10, 10}, Red);
    const Shot shot;
    EXPECT_EQ(shot.at(5, 5), Black);
    EXPECT_EQ(shot.at(55, 55), Red);
}

TEST_F(WindowScreenTest, ABitmapOutlivesItsWindow) {
    Bitmap picture;
    makePicture(picture, ChannelOrder::Rgb, 3);
    canvas.draw(picture, {0, 0, 20, 20});
    Window::destroy();
    EXPECT_TRUE(log.holds("closing window"));
    canvas.draw(picture, {0, 0, 20, 20}); // nothing to draw on, and nothing happens
    EXPECT_TRUE(canvas.readPixels().empty());
    open(800, 600);
    canvas.clearWindow();
    canvas.draw(picture, {0, 0, 2.56F, 2.56F});
    expectPicture(Shot(), 0, 0);
}

TEST_F(WindowScreenTest, RefusesATextureThatTheCardCannotTake) {
    ASSERT_GE(canvas.getMaximumTextureSize(), 1024);
    EXPECT_TRUE(log.holds("[Canvas] Maximum texture size: "));
    Bitmap odd;
    BitmapData data;
    data.width = data.height = data.pictureWidth = data.pictureHeight = 2;
    data.depth = 2;
    data.pixels.resize(8);
    EXPECT_FALSE(odd.assign(std::move(data), "odd"));
    canvas.draw(odd, {0, 0, 10, 10});
    EXPECT_EQ(Shot().at(5, 5), Black);
}

TEST_F(WindowScreenTest, RestsWhileNothingChanges) {
    Window& window = *Window::current();
    Bitmap picture;
    makePicture(picture, ChannelOrder::Rgb, 3);
    const auto shareOfACore = [&](int32_t appState) {
        Platform::getInstance().setAppState(appState);
        const uint32_t start = ticks();
        const double before = processorSeconds();
        while (ticks() - start < 2000) {
            canvas.clearWindow();
            canvas.draw(picture, {0, 0, 1024, 768});
            for (int32_t glyph = 0; glyph < 3000; ++glyph)
                canvas.draw(picture, {static_cast<float>(glyph % 100 * 10),
                                      static_cast<float>(glyph / 100 * 20), 8, 16});
            window.swapBuffers();
        }
        return (processorSeconds() - before) / 2;
    };
    EXPECT_LT(shareOfACore(7), 0.25);
    EXPECT_LT(shareOfACore(5), 0.1) << "somebody else has the keyboard";
    Platform::getInstance().setAppState(-1);
}

} // namespace

} // namespace zel
