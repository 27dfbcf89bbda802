// The sample program, twice in one process.
#include <gtest/gtest.h>

#include "engine/menu/MenuOverlay.h"
#include "engine/menu/style/LayoutHandler.h"
#include "engine/menu/style/ThemeHandler.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/HighLevelScheduler.h"
#include "engine/window/StatesMachine.h"
#include "engine/window/Window.h"
#include "tests/engine/menu/ScreenDriver.h"
#include "tests/engine/menu/TestApp.h"
#include "tests/support/Printers.h"

namespace zel {

namespace {

// Each run goes to a screen with an extension and leaves traces in everything that screens share.
TEST(Restart, LeavesNothingBehind) {
    StatesMachine& machine = StatesMachine::getInstance();
    std::vector<String> states[2];
    size_t tasks[2] = {};
    String overlay; // of a picture that it showed
    for (const size_t run : {0U, 1U}) {
        whenMenusAreLoaded() = [] { ZelLoop::registerPersistent(std::make_unique<LooksScreen>()); };
        const auto before = static_cast<ptrdiff_t>(machine.getHistory().size());
        ScreenDriver driver(SAMPLE_FOLDER);
        ASSERT_TRUE(driver.untilIdle("Start"));
        EXPECT_FALSE(driver.menu().getGlobalFlag("trace"));
        EXPECT_EQ(driver.menu().getGlobalString("trace"), "");
        driver.press("toLooks");
        ASSERT_TRUE(driver.untilIdle("Looks"));
        EXPECT_FALSE(driver.menu().getLocalFlag("trace"));
        driver.menu().setLocalFlag("trace", true);
        driver.press("menuBack");
        ASSERT_TRUE(driver.untilIdle("Start"));
        driver.menu().setGlobalFlag("trace", true);
        driver.menu().setGlobalString("trace", "left behind");
        states[run].assign(machine.getHistory().begin() + before, machine.getHistory().end());
        tasks[run] = HighLevelScheduler::getInstance().getTaskCount();
        auto& desk = dynamic_cast<MenuOverlay&>(*driver.menu().getThemeBackground());
        overlay = desk.getIdentifier();
        EXPECT_EQ(MenuOverlay::find(overlay), &desk);
        EXPECT_TRUE(driver.menu().hitWidget("toLooks"));
        ZelLoop::restart();
        EXPECT_TRUE(ZelLoop::isFinished());
        for (const char* mark : {"!! ", " w "})
            EXPECT_EQ(driver.log.linesWith(mark), 0) << driver.log.text();
    }
    EXPECT_EQ(MenuOverlay::find(overlay), nullptr);
    EXPECT_TRUE(HandledMenu::getMenus().empty());
    EXPECT_EQ(machine.findState("Start"), nullptr);
    EXPECT_EQ(machine.getActiveState(), nullptr);
    EXPECT_FALSE(HighLevelScheduler::exists()) << "its tasks went with it";
    EXPECT_EQ(LayoutHandler::getInstance().find("start"), nullptr);
    EXPECT_EQ(ThemeHandler::getInstance().find("sample"), nullptr);
    EXPECT_EQ(Widget::lastWidgetHit, nullptr);
    EXPECT_EQ(Window::current(), nullptr);
    EXPECT_EQ(states[1], states[0]);
    EXPECT_EQ(tasks[1], tasks[0]);
}

} // namespace

} // namespace zel
