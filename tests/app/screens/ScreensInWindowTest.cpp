// The program in its real window: every button by pointer and by keys, and the look of every screen
// in every language.
//
// The pictures in golden/ were made by this test, looked at, and kept. When one
// differs on purpose, run the test, look at the new picture, which it leaves beside the program,
// and copy it over.
#include <cstdlib>
#include <filesystem>

#include <SDL.h>
#include <gtest/gtest.h>

#include "app/career/Database.h"
#include "engine/core/Clock.h"
#include "engine/core/Registry.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "engine/window/Window.h"
#include "engine/window/ZelLoop.h"
#include "tests/app/screens/CareerDriver.h"
#include "tests/app/screens/ScreenTour.h"
#include "tests/engine/menu/GoldenPicture.h"
#include "tests/engine/window/Events.h"
#include "tests/support/Texts.h"

namespace {

class ScreensInWindow : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
        ASSERT_NE(everyButton.find('>'), everyButton.npos) << "no steps in " << BUTTONS_FILE;
    }

    const InFront inFront;
    const PlayerHome home;
    CareerDriver driver{home, 1, true};
    /// The steps to every button of the program but those of RareButtonsTest.cpp.
    const std::string everyButton = fileText(BUTTONS_FILE);
};

uint32_t runningTime = 0; // milliseconds
uint32_t closingTime = 0;

/// A clock that runs while the war is fought in a single frame, and at which somebody closes the
/// window.
uint32_t runningTicks() {
    if (++runningTime == closingTime) {
        SDL_Event event{};
        event.type = SDL_QUIT;
        zel::Platform::getInstance().handleEvent(event);
    }
    return runningTime;
}

class ScreenLanguages : public testing::TestWithParam<const char*> {};

TEST_F(ScreensInWindow, AnswerThePointer) {
    const InFront undrawn{false};
    EXPECT_TRUE(driver.walk(everyButton, CareerDriver::How::Pointer));
}

// Runs without the window, which makes no difference to keys.
TEST(Screens, AnswerTheKeys) {
    const InFront inFront;
    const PlayerHome home;
    CareerDriver driver(home);
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    EXPECT_TRUE(driver.walk(fileText(BUTTONS_FILE), CareerDriver::How::Keys));
    driver.screens->step(600); // a second press doesn't end the program
    driver.screens->key(zel::KeyEscape);
    EXPECT_TRUE(driver.screens->untilIdle("quitApp"));
}

TEST_F(ScreensInWindow, RememberTheFullScreenThatTheKeysChoose) {
    const auto toggle = [&] {
        for (const bool down : {true, false})
            zel::Platform::getInstance().handleEvent(keyEvent(SDLK_RETURN, 0, down, KMOD_LALT));
        driver.screens->step();
        driver.screens->step();
        return zel::Registry::get("fullScreen", "0") == "1";
    };
    EXPECT_TRUE(toggle()) << "on a page without that switch";
    ASSERT_TRUE(driver.walk("menuButton3>MenuConfiguration"));
    EXPECT_EQ(driver.text("fullScreen"), "Full screen: On");
    EXPECT_FALSE(toggle());
    EXPECT_EQ(driver.text("fullScreen"), "Full screen: Off");
    ASSERT_TRUE(driver.walk("fullScreen"));
    EXPECT_TRUE(zel::Window::current()->isFullscreen());
    ASSERT_TRUE(driver.walk("fullScreen"));
    EXPECT_FALSE(zel::Window::current()->isFullscreen());
}

TEST_F(ScreensInWindow, EndWhenTheyAreClosedWhileTheWarIsFought) {
    ASSERT_TRUE(
        driver.walk("careers>MenuCareers another>MenuNewService menuButton3>MenuNewYear "
                    "menuButton2>MenuNewMonth month3>MenuEnlist menuButton1>MenuNewCareer"));
    runningTime = zel::ticks();
    closingTime = runningTime + 500;
    zel::setTickSource(runningTicks);
    driver.screens->menu().hitWidget("menuButton4");
    EXPECT_NE(driver.text("progressDate").find("-1916"), std::string::npos) << "shown to the end";
    EXPECT_FALSE(driver.widget("progress")->isVisible());
    EXPECT_TRUE(zel::ZelLoop::isFinished());
    EXPECT_TRUE(home.save().empty());
}

/// Windows shows its own paths, and searches in its own places.
bool isOtherOnWindows([[maybe_unused]] const std::string& picture) {
#ifdef _WIN32
    return picture.compare(0, 19, "MenuSimulatorFolder") == 0 || picture == "MenuSimulator_None";
#else
    return false;
#endif
}

TEST_P(ScreenLanguages, LookAsTheyWereKept) {
    const std::string language = std::string(GetParam()).substr(0, 2);
    const InFront inFront{false};
    const PlayerHome home;
    CareerDriver driver(home, 1, true, GetParam());
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    const auto visit = [&](const std::string& name) {
        if (isOtherOnWindows(name))
            return;
        const std::string file = language + "/" + name + ".jpg";
        EXPECT_TRUE(isGoldenPicture(driver.shot(), std::string(GOLDEN_FOLDER) + "/" + file,
                                    std::string(NEW_PICTURES_FOLDER) + "/" + file));
    };
    EXPECT_TRUE(tourScreens(driver, visit));
}

INSTANTIATE_TEST_SUITE_P(Tables, ScreenLanguages,
                         testing::Values("en_GB.UTF-8", "de_DE.UTF-8", "fr_FR.UTF-8", "es_AR.UTF-8",
                                         "it_CH.UTF-8", "pl_PL.UTF-8"));

} // namespace
