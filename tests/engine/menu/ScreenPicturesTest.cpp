// The sample program on a real display: what the eye sees of it.
//
// The pictures in golden/ were made by this test, looked at, and kept. When one differs on purpose
// run the test, look at the new picture, which it leaves beside the program, and copy it over.
#include <gtest/gtest.h>

#include "engine/graphics/Canvas.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "engine/window/Window.h"
#include "tests/engine/menu/GoldenPicture.h"
#include "tests/engine/menu/ScreenDriver.h"
#include "tests/engine/menu/TestApp.h"

namespace {

constexpr int32_t Width = 1024;
constexpr int32_t Height = 768;

class ScreenPictures : public testing::Test {
protected:
    void SetUp() override {
        whenMenusAreLoaded() = [] {
            zel::ZelLoop::registerPersistent(std::make_unique<LooksScreen>());
            ASSERT_TRUE(zel::Window::create(Width, Height, 32));
            zel::Window::current()->setSimulatedResolution(Width, Height, true);
        };
        // Pointer and keyboard are in this window, wherever the real ones are.
        zel::Platform::getInstance().setAppState(7);
        driver = std::make_unique<ScreenDriver>(SAMPLE_FOLDER);
        ASSERT_TRUE(driver->untilIdle("Start"));
    }
    void TearDown() override { zel::Platform::getInstance().setAppState(-1); }
    void expectPicture(const std::string& name) {
        driver->step(); // draws
        driver->step(); // shows it and draws it again
        EXPECT_TRUE(isGoldenPicture({Width, Height, zel::Canvas::getInstance().readPixels()},
                                    std::string(GOLDEN_FOLDER) + "/" + name + ".png",
                                    std::string(NEW_PICTURES_FOLDER) + "/" + name + ".png"));
    }
    void visit(const char* screen) {
        driver->press((std::string("to") + screen).c_str());
        ASSERT_TRUE(driver->untilIdle(screen));
        driver->moveTo(5, 5);
    }

    std::unique_ptr<ScreenDriver> driver;
};

} // namespace

TEST_F(ScreenPictures, AreTheKeptOnes) {
    driver->moveTo(5, 5);
    expectPicture("Start");
    for (const char* screen : {"Painted", "Texts", "Places"}) {
        visit(screen);
        expectPicture(screen);
        driver->press("menuBack");
        ASSERT_TRUE(driver->untilIdle("Start"));
    }
}

TEST_F(ScreenPictures, ShowEveryLook) {
    visit("Looks");
    const zel::PixelRect place = driver->widget("shown")->getBounds().rect;
    driver->moveTo(place.x + 10, place.y + 10);
    driver->step();
    EXPECT_TRUE(driver->menu().hitWidget("own")); // its section removes it, and "bare" with it
    expectPicture("Looks");
    driver->press("button");
    driver->key(zel::KeyTab);
    expectPicture("LooksAfter");
}

TEST_F(ScreenPictures, ShowWhatScrolls) {
    visit("Moving");
    driver->press("name");
    for (const char letter : {'L', 'u', 'f', 'b', 'e', 'r', 'y'})
        driver->key(letter, letter);
    driver->moveTo(600, 100);
    for (int32_t wheel = 0; wheel < 2; ++wheel)
        driver->wheel(false);
    driver->moveTo(5, 5);
    expectPicture("Moving");
}
