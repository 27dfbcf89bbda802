#include "engine/window/ZelLoop.h"

#include <gtest/gtest.h>

#include "engine/core/Shutdown.h"
#include "engine/window/HighLevelScheduler.h"
#include "engine/window/StatesMachine.h"
#include "engine/window/ZelApp.h"
#include "tests/engine/window/ManualClock.h"
#include "tests/engine/window/RecordingState.h"
#include "tests/support/LogCapture.h"

namespace {

std::vector<std::string> calls;
void record(const char* what) { calls.emplace_back(what); }

/// What the loop of these tests builds.
class OwnedState : public RecordingState {
public:
    explicit OwnedState(const char* name) : RecordingState(name, ::calls) {}
    ~OwnedState() override { ::calls.push_back("end of " + std::string(getName().view())); }
};

} // namespace

ZelApp::ZelApp() { record("ZelApp"); }
ZelApp::~ZelApp() { record("end of ZelApp"); }
void ZelApp::init() { record("init"); }
void ZelApp::onLanguageSet() { record("onLanguageSet"); }
void ZelApp::beforeServices() { record("beforeServices"); }
void ZelApp::afterServices() { record("afterServices"); }
void ZelApp::beforeMenus() { record("beforeMenus"); }
void ZelApp::initMenus() {
    record("initMenus");
    zel::ZelLoop::registerPersistent(std::make_unique<OwnedState>("start"));
    zel::ZelLoop::registerPersistent(std::make_unique<OwnedState>("other"));
}
void ZelApp::onStarted() { record("onStarted"); }
zel::String ZelApp::getFirstStateName() { return "start"; }
void ZelApp::onPause() { record("onPause"); }
void ZelApp::onContinue() { record("onContinue"); }
void ZelApp::onShutdown() { record("onShutdown"); }
void ZelApp::onDestroy() { record("onDestroy"); }
void ZelApp::releaseDatabase() { record("releaseDatabase"); }
void ZelApp::releaseMenus() { record("releaseMenus"); }

namespace zel {

namespace {

using Told = std::vector<std::string>;

Told taken() { return std::exchange(calls, {}); }

class ZelLoopTest : public testing::Test {
protected:
    ZelLoopTest() {
        StatesMachine::getInstance().reset();
        HighLevelScheduler::destroy();
        calls.clear();
    }
    void steps(ZelLoop& loop, int32_t count, uint32_t milliseconds = 20) {
        for (; count > 0; --count) {
            clock.advance(milliseconds);
            loop.step();
        }
    }

    LogCapture log; // there is no language and no window here, and both say so
    ManualClock clock;
};

TEST_F(ZelLoopTest, BuildsAndEndsInOrder) {
    setShutdownStep(ShutdownStep::Themes, [] { record("themes"); });
    setShutdownStep(ShutdownStep::Sounds, [] { record("sounds"); });
    {
        ZelLoop loop;
        EXPECT_EQ(taken(), (Told{"ZelApp", "init", "onLanguageSet", "beforeServices",
                                 "afterServices", "beforeMenus", "initMenus", "onStarted"}));
        HighLevelScheduler::getInstance().addTask(StatesMachine::getInstance().getState("start"),
                                                  nullptr);
    }
    EXPECT_EQ(taken(),
              (Told{"onShutdown", "onDestroy", "end of other", "end of start", "releaseDatabase",
                    "releaseMenus", "sounds", "themes", "end of ZelApp"}));
    EXPECT_FALSE(HighLevelScheduler::exists());
    EXPECT_EQ(StatesMachine::getInstance().findState("start"), nullptr);
    EXPECT_EQ(StatesMachine::getInstance().findState("quitApp"), nullptr);
    setShutdownStep(ShutdownStep::Themes, nullptr);
    setShutdownStep(ShutdownStep::Sounds, nullptr);
}

TEST_F(ZelLoopTest, ShowsNothingForFiveFrames) {
    ZelLoop loop;
    taken();
    steps(loop, 5);
    EXPECT_EQ(StatesMachine::getInstance().getActiveState(), nullptr);
    EXPECT_EQ(taken(), Told{});
    steps(loop, 1);
    EXPECT_EQ(taken(), (Told{"start.onFirstEnter"}))
        << "the sixth frame enters the state and delivers calls";
}

TEST_F(ZelLoopTest, QuitsByAState) {
    ZelLoop loop;
    steps(loop, 60);
    StatesMachine::getInstance().getActiveState()->setTransition("quitApp");
    taken();
    EXPECT_FALSE(ZelLoop::isFinished());
    for (int32_t frame = 0; frame < 200 && !ZelLoop::isFinished(); ++frame)
        steps(loop, 1);
    EXPECT_TRUE(ZelLoop::isQuitRequested());
    const Told all = taken();
    EXPECT_NE(std::find(all.begin(), all.end(), "start.onLeave"), all.end())
        << "the screen that was left was notified";
    EXPECT_FALSE(loop.run());
    EXPECT_EQ(taken().back(), "onShutdown");
}

TEST_F(ZelLoopTest, PausesOnce) {
    ZelLoop loop;
    steps(loop, 60);
    taken();
    setSuspendStep(
        ShutdownStep::Sounds, [] { record("suspend"); }, [] { record("resume"); });
    ZelLoop::onPause();
    ZelLoop::onPause();
    EXPECT_EQ(taken(), (Told{"onPause", "start.onPause", "suspend"}));
    ZelLoop::onContinue();
    ZelLoop::onContinue();
    EXPECT_EQ(taken(), (Told{"start.onContinue", "onContinue", "resume"}));
    LogCapture lines(LogInfo);
    ZelLoop::onContinue();
    EXPECT_EQ(lines.linesWith("onContinue called"), 1);
    EXPECT_EQ(lines.linesWith("onContinue finished"), 0) << "it was not paused";
    ZelLoop::onPause();
    HighLevelScheduler::destroy();
    ZelLoop::onContinue();
    EXPECT_EQ(lines.linesWith("onContinue finished"), 1);
    EXPECT_EQ(HighLevelScheduler::getInstance().getTaskCount(), 1U) << "the rare task is back";
    setSuspendStep(ShutdownStep::Sounds, nullptr, nullptr);
}

} // namespace

} // namespace zel
