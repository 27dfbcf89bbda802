#include <algorithm>

#include <gtest/gtest.h>

#include "engine/menu/widgets/TextArea.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/Platform.h"
#include "engine/window/StatesMachine.h"
#include "tests/engine/menu/ScreenDriver.h"
#include "tests/engine/menu/TestApp.h"
#include "tests/support/Printers.h"

using namespace zel;

namespace {

/// The sample program, in its first screen.
class SampleProgram : public testing::Test {
protected:
    SampleProgram() {
        whenMenusAreLoaded() = [] { ZelLoop::registerPersistent(std::make_unique<LooksScreen>()); };
        driver = std::make_unique<ScreenDriver>(SAMPLE_FOLDER);
        EXPECT_TRUE(driver->untilIdle("Start"));
    }
    ~SampleProgram() override {
        for (const ScriptFault& fault : driver->faults)
            ADD_FAILURE() << fault.file.view() << ": " << fault.text.view();
        for (const char* mark : {"!! ", " w "})
            EXPECT_EQ(driver->log.linesWith(mark), 0) << driver->log.text();
    }
    void go(const char* button, const char* screen) {
        driver->press(button);
        ASSERT_TRUE(driver->untilIdle(screen)) << button;
    }

    std::unique_ptr<ScreenDriver> driver;
};

} // namespace

TEST_F(SampleProgram, WalksThroughAllScreens) {
    EXPECT_EQ(driver->text("title"), "Sample program") << "a text of the language table";
    for (const char* screen : {"Looks", "Texts", "Places", "Moving", "Painted", "Variables"}) {
        go((std::string("to") + screen).c_str(), screen);
        go("menuBack", "Start");
    }
    go("toVariables", "Variables");
    driver->press("pass");
    ASSERT_TRUE(driver->untilIdle("Passing"));
    EXPECT_TRUE(driver->untilIdle("Start")) << "it goes on by itself";
    driver->key(KeyEscape);
    for (int32_t frame = 0; frame < 100 && !ZelLoop::isFinished(); ++frame)
        driver->step();
    EXPECT_TRUE(ZelLoop::isFinished()) << "the way back from the first screen is the end";
}

TEST_F(SampleProgram, SetsTexts) {
    go("toTexts", "Texts");
    EXPECT_EQ(driver->text("short"), "Two lines:\nthe second one.");
    driver->menu().setText("short", "D:\\new");
    EXPECT_EQ(driver->menu().getTextArea("short")->getLabel().lineCount(), 1) << "set by code";
    EXPECT_EQ(driver->text("number"), "Language text ");
    EXPECT_EQ(driver->text("asArea"), "Defined as a widget, made as a text area");
    driver->press("label");
    EXPECT_EQ(driver->menu().getTextAreas().size(), 3U);
    driver->press("number");
    EXPECT_TRUE(driver->menu().getTextAreas().empty());
    EXPECT_EQ(driver->menu().getWidgets().size(), 1U);
    driver->step();
    go("menuBack", "Start");
}

TEST_F(SampleProgram, MovesElementsInAndOut) {
    driver->press("toMoving");
    StatesMachine& machine = StatesMachine::getInstance();
    std::vector<int32_t> way;
    while (!machine.isSettled()) {
        driver->step();
        const Widget* widget = driver->widget("fromLeft");
        if (machine.getPhase() == StatesMachine::FadeIn && widget != nullptr) {
            driver->menu().render();
            way.push_back(widget->getBounds().drawX);
        }
    }
    ASSERT_GT(way.size(), 5U);
    EXPECT_TRUE(std::is_sorted(way.begin(), way.end()));
    EXPECT_LT(way.front(), -150) << "it comes from 320 pixels to the left of 64";
    driver->menu().render();
    EXPECT_EQ(driver->widget("fromLeft")->getBounds().drawX, 64);
    HandledMenu& leaving = driver->menu();
    driver->press("menuBack");
    way.clear();
    for (; machine.getPhase() == StatesMachine::FadeOut; driver->step()) {
        leaving.render();
        way.push_back(leaving.getWidget("fromLeft")->getBounds().drawY);
    }
    ASSERT_GT(way.size(), 5U);
    EXPECT_TRUE(std::is_sorted(way.rbegin(), way.rend()));
    EXPECT_LT(way.back(), way.front() - 60) << "it leaves upwards by 120 pixels";
    EXPECT_TRUE(driver->untilIdle("Start"));
}

TEST_F(SampleProgram, RunsEverySection) {
    go("toVariables", "Variables");
    HandledMenu& menu = driver->menu();
    EXPECT_TRUE(menu.getLocalFlag("wasreset"));
    EXPECT_TRUE(menu.getLocalFlag("entered"));
    EXPECT_EQ(menu.getLocalString("accent"), "\xE9") << "the script is UTF-8";
    driver->press("store");
    EXPECT_FALSE(driver->widget("store")->wasHit()) << "onevent resets it";
    ZelLoop::onPause();
    EXPECT_EQ(menu.getLocalString("step"), "paused");
    ZelLoop::onContinue();
    EXPECT_EQ(menu.getLocalString("step"), "continued");
    go("menuBack", "Start");
    EXPECT_TRUE(menu.getLocalFlag("leaving"));
    EXPECT_EQ(menu.getLocalString("step"), "left");
}
