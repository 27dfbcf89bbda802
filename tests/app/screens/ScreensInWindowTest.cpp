// The program in its real window: every button by pointer and by keys, and the look of every screen
// in every language.
//
// The pictures in golden/ were made by this test, looked at, and kept, at half their size. When one
// differs on purpose, run the test, look at the new picture, which it leaves beside the program,
// and copy it over.
#include <cstdlib>
#include <filesystem>

#include <SDL.h>
#include <gtest/gtest.h>

#include "app/career/Database.h"
#include "engine/core/Clock.h"
#include "engine/core/Platform.h"
#include "engine/core/System.h"
#include "engine/core/Window.h"
#include "engine/core/ZelLoop.h"
#include "engine/graphics/Canvas.h"
#include "engine/menu/Widget.h"
#include "tests/app/screens/CareerDriver.h"
#include "tests/app/screens/ScreenTour.h"
#include "tests/engine/menu/GoldenPicture.h"

namespace {

std::string times(int32_t count, const std::string& step) {
    std::string steps;
    for (int32_t i = 1; i <= count; ++i) {
        std::string one = step;
        for (size_t place = one.find('#'); place != one.npos; place = one.find('#'))
            one.replace(place, 1, std::to_string(i));
        steps += one + " ";
    }
    return steps;
}

/// Every button of the program but those that end it.
std::string everyButton() {
    return "menuButton4>MenuHelp1 menuBack>MenuMain menuButton4>MenuHelp1 menuButton1>MenuHelp2 "
           "menuBack>MenuMain menuButton5>MenuCredits menuBack>MenuMain "
           "menuButton3>MenuConfiguration sound sound menuButton1>MenuConfigurationMaps "
           "menuButton1 menuButton1 menuButton2 menuButton2 menuBack>MenuConfiguration "
           "menuButton2>MenuConfigurationPlanes1 " +
           times(12, "item# item#") + "menuButton1>MenuConfigurationPlanes2 " +
           times(12, "item# item#") +
           "menuButton1>MenuConfigurationPlanes1 menuBack>MenuConfiguration "
           "menuButton3>MenuConfigurationPlanes2 menuBack>MenuConfiguration menuBack>MenuMain "
           "menuButton2>BlackScreen menuBack>MenuMain "
           "menuButton1>MenuNewService menuBack>MenuMain menuButton1>MenuNewService "
           "menuButton1>MenuNewYear menuBack>MenuNewService menuButton3>MenuNewYear "
           "menuButton1>MenuNewCareer menuBack>MenuNewYear menuButton2>MenuNewMonth " +
           times(12, "month#>MenuNewCareer menuBack>MenuNewMonth") +
           "menuBack>MenuNewYear menuButton3>MenuNewMonth menuBack>MenuNewYear "
           "menuButton4>MenuNewMonth1918 " +
           times(10, "month#>MenuNewCareer menuBack>MenuNewMonth1918") +
           "menuBack>MenuNewYear menuBack>MenuNewService menuButton2>MenuNewYear "
           "menuButton1>MenuNewCareer menuButton4>MenuGameMain "
           "menuButton2>MenuGameViewSquadron menuButton1>MenuGameMain menuButton3>MenuGameTopAces "
           "menuButton1>MenuGameMain menuButton1>MenuGameStartMission menuBack>MenuGameMain "
           "menuButton1>MenuGameStartMission menuButton4>MenuGameFinishMission "
           "menuBack>MenuGameMain menuButton1>MenuGameStartMission "
           "menuButton4>MenuGameFinishMission menuButton4>MenuGameCombatReport "
           "menuButton1>MenuGameMain menuBack>MenuMain";
}

/// As a player holds the window: in front, the pointer in it.
class ScreensInWindow : public testing::Test {
protected:
    ScreensInWindow() { zel::Platform::getInstance().setAppState(7); }
    ~ScreensInWindow() override { zel::Platform::getInstance().setAppState(-1); }

    std::vector<uint8_t> shot(CareerDriver& driver) {
        driver.screens->moveTo(5, 5);
        driver.screens->step(); // draws
        driver.screens->step(); // shows it and draws it again
        return zel::Canvas::getInstance().readPixels();
    }
};

uint32_t runningTime = 0; // milliseconds
uint32_t closingTime = 0;

/// A clock that runs while the war is fought in a single frame, and on it somebody who closes the
/// window.
uint32_t runningTicks() {
    if (++runningTime == closingTime) {
        SDL_Event event{};
        event.type = SDL_QUIT;
        zel::Platform::getInstance().handleEvent(event);
    }
    return runningTime;
}

class ScreenLanguages : public ScreensInWindow, public testing::WithParamInterface<const char*> {};

} // namespace

TEST_F(ScreensInWindow, AnswerThePointer) {
    const PlayerHome home;
    CareerDriver driver(home, 1, true);
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    EXPECT_TRUE(driver.walk(everyButton(), CareerDriver::How::Pointer));
}

TEST_F(ScreensInWindow, AnswerTheKeys) {
    const PlayerHome home;
    CareerDriver driver(home, 1, true);
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    EXPECT_TRUE(driver.walk(everyButton(), CareerDriver::How::Keys));
    driver.screens->key(zel::KeyEscape);
    EXPECT_TRUE(driver.screens->untilIdle("quitApp"));
}

TEST_F(ScreensInWindow, TellOfTheFullScreenThatTheKeysChoose) {
    const PlayerHome home;
    CareerDriver driver(home, 1, true);
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    ASSERT_TRUE(driver.walk("menuButton3>MenuConfiguration"));
    EXPECT_EQ(driver.text("fullScreen"), "Full screen: Off");
    for (const char* text : {"Full screen: On", "Full screen: Off"}) {
        SDL_Event event{};
        event.type = SDL_KEYDOWN;
        event.key.keysym.sym = SDLK_RETURN;
        event.key.keysym.mod = KMOD_LALT;
        zel::Platform::getInstance().handleEvent(event);
        event.type = SDL_KEYUP;
        zel::Platform::getInstance().handleEvent(event);
        driver.screens->step();
        driver.screens->step();
        EXPECT_EQ(driver.text("fullScreen"), text);
    }
    ASSERT_TRUE(driver.walk("fullScreen"));
    EXPECT_TRUE(zel::Window::current()->isFullscreen());
    ASSERT_TRUE(driver.walk("fullScreen"));
    EXPECT_FALSE(zel::Window::current()->isFullscreen());
}

TEST_F(ScreensInWindow, EndWhenTheyAreClosedWhileTheWarIsFought) {
    const PlayerHome home;
    CareerDriver driver(home, 1, true);
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    ASSERT_TRUE(driver.walk("menuButton1>MenuNewService menuButton3>MenuNewYear "
                            "menuButton2>MenuNewMonth month3>MenuNewCareer"));
    runningTime = zel::ticks();
    closingTime = runningTime + 500;
    zel::setTickSource(runningTicks);
    driver.screens->menu().hitWidget("menuButton4");
    EXPECT_NE(driver.text("progressDate").find("-1916"), std::string::npos) << "shown to the end";
    EXPECT_FALSE(driver.widget("progress")->isVisible());
    EXPECT_TRUE(zel::ZelLoop::isFinished());
    EXPECT_EQ(home.save(), "");
}

TEST_P(ScreenLanguages, LookAsTheyWereKept) {
    zel::system::setEnvironment("LC_ALL", std::string(GetParam()) + ".UTF-8");
    const std::string language = std::string(GetParam()).substr(0, 2);
    const PlayerHome home;
    CareerDriver driver(home, 1, true);
    zel::system::setEnvironment("LC_ALL", "");
    ASSERT_TRUE(driver.screens->untilIdle("MenuMain"));
    const auto visit = [&](const std::string& name) {
        const std::string file = language + "/" + name + ".jpg";
        EXPECT_TRUE(isGoldenPicture(halved(shot(driver), 1024, 768), 512, 384,
                                    std::string(GOLDEN_FOLDER) + "/" + file,
                                    std::string(NEW_PICTURES_FOLDER) + "/" + file));
    };
    EXPECT_TRUE(tourScreens(driver, home, visit));
}

INSTANTIATE_TEST_SUITE_P(Tables, ScreenLanguages, testing::Values("en_GB", "de_DE", "fr_FR"));
