// The sample program, twice in one process.
#include <gtest/gtest.h>

#include "engine/menu/HandledMenuExtension.h"
#include "engine/menu/MenuOverlay.h"
#include "engine/menu/style/LayoutHandler.h"
#include "engine/menu/style/ThemeHandler.h"
#include "engine/menu/widgets/Widget.h"
#include "engine/window/HighLevelScheduler.h"
#include "engine/window/StatesMachine.h"
#include "engine/window/Window.h"
#include "engine/window/ZelLoop.h"
#include "tests/engine/menu/ScreenDriver.h"
#include "tests/engine/menu/TestApp.h"
#include "tests/support/Printers.h"

namespace zel {

namespace {

/// What one run of the program came by.
struct Traces {
    int32_t starts = 0;         // so often was its listener told that "Start" was entered
    std::vector<String> states; // entered, in their order
    size_t tasks = 0;           // at its end
    String overlay;             // the identifier of a picture that it showed
};

class Listener : public HandledMenuExtension {
public:
    explicit Listener(int32_t& starts) : HandledMenuExtension("Start"), starts(starts) {}
    void onEnter() override { ++starts; }

private:
    int32_t& starts;
};

/// Goes to a few screens, leaves traces in all that screens share, and restarts.
Traces runOnce() {
    Traces traces;
    whenMenusAreLoaded() = [&traces] {
        ZelLoop::registerPersistent(std::make_unique<Listener>(traces.starts));
    };
    ScreenDriver driver(SAMPLE_FOLDER);
    StatesMachine& machine = StatesMachine::getInstance();
    const size_t before = machine.getHistory().size();
    EXPECT_TRUE(driver.untilIdle("Start"));
    EXPECT_FALSE(driver.menu().getGlobalFlag("trace"));
    EXPECT_EQ(driver.menu().getGlobalString("trace"), "");
    for (const char* screen : {"Places", "Variables"}) {
        driver.press((std::string("to") + screen).c_str());
        EXPECT_TRUE(driver.untilIdle(screen));
        EXPECT_FALSE(driver.menu().getLocalFlag("trace"));
        driver.menu().setLocalFlag("trace", true);
        driver.press("menuBack");
        EXPECT_TRUE(driver.untilIdle("Start"));
    }
    driver.menu().setGlobalFlag("trace", true);
    driver.menu().setGlobalString("trace", "left behind");
    const std::vector<String>& history = machine.getHistory();
    traces.states.assign(history.begin() + static_cast<ptrdiff_t>(before), history.end());
    traces.tasks = HighLevelScheduler::getInstance().getTaskCount();
    traces.overlay =
        dynamic_cast<MenuOverlay&>(*driver.menu().getThemeBackground()).getIdentifier();
    EXPECT_NE(MenuOverlay::find(traces.overlay), nullptr);
    EXPECT_TRUE(driver.menu().hitWidget("toLooks"));
    EXPECT_NE(Widget::lastWidgetHit, nullptr);
    ZelLoop::restart();
    EXPECT_TRUE(ZelLoop::isFinished());
    for (const char* mark : {"!! ", " w "})
        EXPECT_EQ(driver.log.linesWith(mark), 0) << driver.log.text();
    return traces;
}

TEST(Restart, LeavesNothingBehind) {
    const Traces first = runOnce();
    EXPECT_TRUE(HandledMenu::getMenus().empty());
    EXPECT_EQ(StatesMachine::getInstance().findState("Start"), nullptr);
    EXPECT_EQ(StatesMachine::getInstance().getActiveState(), nullptr);
    EXPECT_FALSE(HighLevelScheduler::exists()) << "its tasks went with it";
    EXPECT_EQ(MenuOverlay::find(first.overlay), nullptr);
    EXPECT_EQ(LayoutHandler::getInstance().find("start"), nullptr);
    EXPECT_EQ(ThemeHandler::getInstance().find("sample"), nullptr);
    EXPECT_EQ(Widget::lastWidgetHit, nullptr);
    EXPECT_EQ(Window::current(), nullptr);

    const Traces second = runOnce();
    EXPECT_EQ(first.starts, 3);
    EXPECT_EQ(second.starts, first.starts);
    EXPECT_EQ(second.states, first.states);
    EXPECT_EQ(second.tasks, first.tasks);
}

} // namespace

} // namespace zel
