#include "engine/window/LongWork.h"

#include <gtest/gtest.h>

#include "engine/window/HighLevelScheduler.h"
#include "engine/window/Keyboard.h"
#include "engine/window/Mouse.h"
#include "engine/window/StatesMachine.h"
#include "engine/window/Window.h"
#include "tests/engine/window/Events.h"
#include "tests/engine/window/ManualClock.h"
#include "tests/engine/window/RecordingState.h"
#include "tests/support/LogCapture.h"

namespace zel {

namespace {

using Told = std::vector<std::string>;

/// A state that works for five seconds whenever it is updated, and when it is left.
class WorkingState : public RecordingState {
public:
    WorkingState(Told& told, ManualClock& clock)
        : RecordingState("working", told), told(told), clock(clock) {}

    void update() override { work(); }
    void onLeave() override { work(); }

private:
    void work() {
        LongWork work;
        for (int32_t step = 0; step < 100; ++step) {
            clock.advance(50);
            if (work.isDue())
                work.showFrame([this] { told.emplace_back("bar"); });
        }
    }

    Told& told;
    ManualClock& clock;
};

class LongWorkTest : public testing::Test {
protected:
    LongWorkTest() {
        platform.clearInput();
        HighLevelScheduler::destroy();
        machine.setActiveState(&working);
        frames(60);
    }
    ~LongWorkTest() override {
        platform.clearInput();
        HighLevelScheduler::destroy();
        machine.reset();
    }
    void frames(int32_t count) {
        for (; count > 0; --count) {
            clock.advance(20);
            HighLevelScheduler::getInstance().render();
            machine.update();
        }
    }
    static void push(SDL_Event event) { ASSERT_EQ(SDL_PushEvent(&event), 0); }
    static void press(bool down = true) { push(buttonEvent(1, down)); }
    static void type(char letter) { push(keyEvent(letter, static_cast<Uint8>(letter), true)); }

    LogCapture log;
    ManualClock clock;
    Platform& platform = Platform::getInstance();
    StatesMachine& machine = StatesMachine::getInstance();
    Told told;
    WorkingState working{told, clock};
    RecordingState next{"next", told};
};

TEST_F(LongWorkTest, ShowsTenFramesASecond) {
    told.clear();
    working.update();
    EXPECT_EQ(std::count(told.begin(), told.end(), "bar"), 50);
    EXPECT_EQ(told.size(), 100U);
    EXPECT_EQ(told[0], "working.render");
    EXPECT_EQ(told[1], "bar") << "above the state";
}

TEST_F(LongWorkTest, DropsWhatIsPressedMeanwhile) {
    platform.beginInputFrame();
    {
        LongWork work;
        type('a');
        press();
        press(false);
        work.showFrame();
        type('b');
        press(); // and still held after it
        push(quitEvent());
    }
    EXPECT_TRUE(Window::pollQuit()) << "but not that the window was closed";
    EXPECT_FALSE(Mouse::isButtonDown(1));
    EXPECT_FALSE(Mouse::isButtonHit(1));
    EXPECT_TRUE(Keyboard::takeKeys().empty());
    EXPECT_EQ(Keyboard::getKey().symbol, 0);
    platform.endInputFrame();
    press(false);
    platform.beginInputFrame();
    EXPECT_FALSE(Mouse::isButtonHit(1));
    EXPECT_FALSE(Mouse::wasTapped(1, -10, -10, 2000, 2000));
    platform.endInputFrame();
    press();
    EXPECT_TRUE(Mouse::isButtonDown(1)) << "what comes later counts";
    press(false);
    EXPECT_TRUE(Mouse::isButtonHit(1));
}

TEST_F(LongWorkTest, CostsTheOtherTasksNothing) {
    struct Counter : UpdateObject {
        int32_t runs = 0;
        void update() override { ++runs; }
    } other;
    HighLevelScheduler& scheduler = HighLevelScheduler::getInstance();
    scheduler.addTask(static_cast<UpdateObject*>(&working), nullptr);
    scheduler.setTaskPriority(&working, 3);
    scheduler.addTask(&other, nullptr);
    frames(3);
    EXPECT_EQ(std::count(told.begin(), told.end(), "bar"), 150) << "it was not put off either";
    EXPECT_EQ(other.runs, 3);
    EXPECT_EQ(log.linesWith("took too long"), 0);
}

TEST_F(LongWorkTest, CostsNoFade) {
    next.setFadeTimes(0.5F, 0.5F, 1);
    machine.setActiveState(&next);
    while (std::count(told.begin(), told.end(), "bar") == 0)
        frames(1);
    frames(3);
    EXPECT_EQ(machine.getPhase(), StatesMachine::FadeIn);
    EXPECT_LT(next.getContentProgress(), 0.5F);
    frames(60);
    EXPECT_TRUE(machine.isSettled());
}

} // namespace

} // namespace zel
