// The sample program, run by its loop on a real display and the real clock.
#include <SDL.h>
#include <gtest/gtest.h>

#include "engine/core/Clock.h"
#include "engine/core/LongWork.h"
#include "engine/core/Platform.h"
#include "engine/core/Registry.h"
#include "engine/core/StatesMachine.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"
#include "engine/core/Window.h"
#include "engine/core/ZelLoop.h"
#include "engine/graphics/Canvas.h"
#include "engine/menu/HandledMenuExtension.h"
#include "tests/engine/menu/TestApp.h"
#include "tests/support/LogCapture.h"
#include "tests/support/ProcessorTime.h"
#include "tests/support/TemporaryFolder.h"

namespace zel {

namespace {

constexpr int32_t Width = 1024;
constexpr int32_t Height = 768;

class ProgramScreenTest : public testing::Test {
protected:
    ProgramScreenTest() {
        Platform::getInstance().clearInput();
        system::changeDirectory(SAMPLE_FOLDER);
        setUserDirectory(folder.file("user") + "/");
        Registry::reset();
        whenMenusAreLoaded() = [] {
            ASSERT_TRUE(Window::create(Width, Height, 32));
            Window::current()->setSimulatedResolution(Width, Height, true);
        };
        loop = std::make_unique<ZelLoop>();
    }
    ~ProgramScreenTest() override {
        loop.reset();
        whenMenusAreLoaded() = nullptr;
        Platform::getInstance().clearInput();
        Platform::getInstance().setAppState(-1);
        setUserDirectory("");
        system::changeDirectory(folderBefore);
    }
    void SetUp() override {
        const StatesMachine& machine = StatesMachine::getInstance();
        constexpr uint32_t Patience = 10000; // milliseconds
        for (const uint32_t start = ticks(); ticks() - start < Patience;) {
            loop->step();
            if (machine.getActiveState() != nullptr && machine.isSettled())
                return;
        }
        FAIL() << "the first screen never came\n" << log.text();
    }
    /// The processor time that ten seconds of the running program take, in shares of a core.
    double shareOfACore(int32_t appState) {
        constexpr uint32_t Seconds = 10;
        Platform::getInstance().setAppState(appState);
        const uint32_t start = ticks();
        const double before = processorSeconds();
        while (ticks() - start < Seconds * 1000 && !ZelLoop::isFinished())
            loop->step();
        return (processorSeconds() - before) / Seconds;
    }

    LogCapture log;
    TemporaryFolder folder;
    String folderBefore = system::currentDirectory();
    std::unique_ptr<ZelLoop> loop;
};

TEST_F(ProgramScreenTest, RestsWhileNobodyDoesAnything) {
    const double focused = shareOfACore(7);
    EXPECT_LE(focused, 0.25);
    const double inTheBackground = shareOfACore(5);
    EXPECT_LE(inTheBackground, 0.1) << "the simulator runs in front";
    RecordProperty("focused", std::to_string(focused));
    RecordProperty("background", std::to_string(inTheBackground));
    EXPECT_FALSE(ZelLoop::isFinished());
}

/// A window's size, and where the picture must lie in it by hand reckoning.
struct Boxed {
    int32_t width, height;
    int32_t left, top; // of the picture
    double scale;
};

class Picture {
public:
    Picture() : pixels(Canvas::getInstance().readPixels()) {}
    bool isBlack(int32_t x, int32_t y) const {
        const uint8_t* pixel = at(x, y);
        return pixel[0] == 0 && pixel[1] == 0 && pixel[2] == 0;
    }
    int32_t red(int32_t x, int32_t y) const { return *at(x, y); }

private:
    const uint8_t* at(int32_t x, int32_t y) const {
        return &pixels.at(static_cast<size_t>((y * Window::current()->getRealWidth() + x) * 3));
    }
    std::vector<uint8_t> pixels;
};

TEST_F(ProgramScreenTest, KeepsItsShapeInEveryWindow) {
    for (const Boxed& box : {Boxed{1600, 900, 200, 0, 1.171875},  // bars at the sides
                             Boxed{800, 600, 0, 0, 0.78125},      // none
                             Boxed{800, 900, 0, 150, 0.78125}}) { // above and below
        SCOPED_TRACE(testing::Message() << box.width << " by " << box.height);
        Window::current()->resize(box.width, box.height);
        ASSERT_EQ(Window::current()->getRealWidth(), box.width);
        loop->step();
        const Picture picture;
        for (int32_t y = 0; y < box.height; y += 7)
            for (int32_t x = 0; x < box.width; x += 7) {
                const bool isBar = x < box.left || x >= box.width - box.left || y < box.top ||
                                   y >= box.height - box.top;
                ASSERT_EQ(picture.isBlack(x, y), isBar) << x << ", " << y;
            }
        // The first button begins at 392, 160: light from two pixels on, the desk before it dark.
        const auto redAt = [&](double x, double y) {
            return picture.red(box.left + static_cast<int32_t>(x * box.scale),
                               box.top + static_cast<int32_t>(y * box.scale));
        };
        EXPECT_NEAR(redAt(400, 184), 198, 24);
        EXPECT_LT(redAt(386, 184), 90);
        EXPECT_NEAR(redAt(624, 184), 198, 24);
        EXPECT_LT(redAt(638, 184), 90);
    }
}

/// Work of some pictures in the first screen's update, in the midst of which the window is closed.
class Working : public HandledMenuExtension {
public:
    Working() : HandledMenuExtension("Start") {}
    void update() override {
        if (done != 0)
            return;
        LongWork work;
        Canvas& canvas = Canvas::getInstance();
        const int32_t before = canvas.getFramesSent();
        while (done < 400) {
            system::sleepMilliseconds(5);
            if (!work.isDue())
                continue;
            done += 100;
            work.showPicture([&] { canvas.fill({0, 0, done, 10}, 0xFFFF0000); });
            SDL_Event event{};
            event.type = SDL_QUIT;
            if (!LongWork::isQuitWanted())
                SDL_PushEvent(&event);
        }
        pictures = canvas.getFramesSent() - before;
        isRed = Picture().red(static_cast<int32_t>(done) - 5, 5) > 240;
    }
    float done = 0;
    int32_t pictures = 0;
    bool isRed = false; // where the bar had come to at last
};

TEST_F(ProgramScreenTest, ShowsHowLongWorkGoes) {
    auto owned = std::make_unique<Working>();
    const Working& working = *owned;
    ZelLoop::registerPersistent(std::move(owned));
    EXPECT_FALSE(loop->run()) << "the window was closed";
    EXPECT_EQ(working.pictures, 4);
    EXPECT_TRUE(working.isRed);
}

} // namespace

} // namespace zel
