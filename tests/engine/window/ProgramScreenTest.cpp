// The sample program, run by its loop on a real display and the real clock.
#include <gtest/gtest.h>

#include "engine/core/Clock.h"
#include "engine/core/Registry.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"
#include "engine/menu/HandledMenuExtension.h"
#include "engine/window/LongWork.h"
#include "engine/window/Platform.h"
#include "engine/window/StatesMachine.h"
#include "engine/window/ZelLoop.h"
#include "tests/engine/menu/TestApp.h"
#include "tests/engine/window/Events.h"
#include "tests/engine/window/Shot.h"
#include "tests/support/LogCapture.h"
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
    LogCapture log;
    TemporaryFolder folder;
    String folderBefore = system::currentDirectory();
    std::unique_ptr<ZelLoop> loop;
};

TEST_F(ProgramScreenTest, KeepsItsShapeInEveryWindow) {
    const struct {
        size_t width, height;
        size_t left, top; // of the picture
        double scale;
    } cases[] = {
        {1600, 900, 200, 0, 1.171875}, // bars at the sides
        {800, 600, 0, 0, 0.78125},     // none
        {800, 900, 0, 150, 0.78125},   // above and below
    };
    for (const auto& [width, height, left, top, scale] : cases) {
        SCOPED_TRACE(testing::Message() << width << " by " << height);
        Window::current()->resize(static_cast<int32_t>(width), static_cast<int32_t>(height));
        ASSERT_EQ(Window::current()->getRealWidth(), static_cast<int32_t>(width));
        loop->step();
        const Shot shot;
        for (size_t y = 0; y < height; y += 7)
            for (size_t x = 0; x < width; x += 7) {
                const bool isBar = x < left || x >= width - left || y < top || y >= height - top;
                ASSERT_EQ(shot.at(x, y) == 0xFF000000, isBar) << x << ", " << y;
            }
        // The first button's light goes from 394 to 630, with the dark desk at either side.
        const auto redAt = [&, left = left, top = top, scale = scale](double x) {
            return shot.red(left + static_cast<size_t>(x * scale),
                            top + static_cast<size_t>(184 * scale));
        };
        for (const double light : {400, 624})
            EXPECT_NEAR(redAt(light), 198, 24) << light;
        for (const double dark : {386, 638})
            EXPECT_LT(redAt(dark), 90) << dark;
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
            SDL_Event event = quitEvent();
            if (done < 150) // at the first picture
                SDL_PushEvent(&event);
        }
        pictures = canvas.getFramesSent() - before;
        isRed = Shot().red(static_cast<size_t>(done) - 5, 5) > 240;
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
