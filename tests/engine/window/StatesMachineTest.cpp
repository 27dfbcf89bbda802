#include "engine/window/StatesMachine.h"

#include <gtest/gtest.h>

#include "engine/window/HighLevelScheduler.h"
#include "engine/window/StateOverlay.h"
#include "tests/engine/window/ManualClock.h"
#include "tests/engine/window/RecordingState.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Printers.h"

namespace zel {

namespace {

using Told = std::vector<std::string>;

class StatesMachineTest : public testing::Test {
protected:
    StatesMachineTest() {
        HighLevelScheduler::destroy();
        State::setFadeSpeed(5);
        State::setCrossFadeSpeed(3);
    }
    ~StatesMachineTest() override {
        State::setFadeSpeed(1);
        State::setCrossFadeSpeed(1);
        HighLevelScheduler::destroy();
        machine.reset();
    }

    /// One frame of that many milliseconds. Returns the calls made in it.
    Told frame(uint32_t milliseconds = 0) {
        clock.advance(milliseconds);
        told.clear();
        machine.update();
        return told;
    }
    void frames(int32_t count, uint32_t milliseconds = 0) {
        for (; count > 0; --count)
            frame(milliseconds);
    }
    void enter(State& state) {
        machine.setActiveState(&state);
        for (int32_t count = 0; count < 100 && !machine.isSettled(); ++count)
            frame(50);
        ASSERT_TRUE(machine.isSettled());
    }
    void leaveFirst() {
        enter(first);
        machine.setActiveState(&second);
    }
    /// What is drawn.
    Told drawn() {
        told.clear();
        machine.render();
        return told;
    }

    ManualClock clock;
    Told told;
    StatesMachine& machine = StatesMachine::getInstance();
    RecordingState first{"first", told};
    RecordingState second{"second", told};
};

TEST_F(StatesMachineTest, DeliversOneCallAFrameAndFadesInBetween) {
    leaveFirst();
    EXPECT_EQ(frame(20), (Told{"first.onLeaving"}));
    EXPECT_EQ(frame(20), (Told{"second.onFirstEnter"}));
    EXPECT_EQ(frame(500), (Told{"second.onEnter", "second.reset"})) << "a slow load costs no fade";
    EXPECT_EQ(frame(500), Told{}) << "the timer starts";

    // 0.5 s divided by the speeds: 0.1 s out, 0.1667 s across, 0.1 s in.
    frame(50);
    EXPECT_EQ(machine.getPhase(), StatesMachine::FadeOut);
    EXPECT_NEAR(first.getContentProgress(), 0.5, 0.01);
    EXPECT_EQ(first.getContentPhase(), 1);
    EXPECT_EQ(first.getOpacityPhase(), 1);
    EXPECT_EQ(second.getOpacityByte(), 0);
    frame(51);
    EXPECT_EQ(machine.getPhase(), StatesMachine::CrossFade);
    frame(82);
    EXPECT_NEAR(second.getOpacity(), 0.5, 0.01) << "it comes up over the old one";
    EXPECT_EQ(first.getOpacity(), 1);
    frame(84);
    EXPECT_EQ(machine.getPhase(), StatesMachine::FadeIn);
    EXPECT_EQ(second.getOpacity(), 1);
    EXPECT_EQ(machine.getPreviousState(), nullptr);
    EXPECT_EQ(frame(1), (Told{"first.onLeave"}));
    EXPECT_EQ(frame(1), (Told{"second.onEntered"}));
    EXPECT_EQ(frame(1), Told{}) << "the schedulers' line";
    frame(46);
    EXPECT_NEAR(second.getContentProgress(), 0.5, 0.02);
    EXPECT_FALSE(machine.isSettled());
    frame(52);
    EXPECT_TRUE(machine.isSettled());
    EXPECT_EQ(second.getContentProgress(), 1);
}

TEST_F(StatesMachineTest, PhasesOfNoLengthEndAtOnce) {
    first.setFadeTimes(0, 0, -1); // a negative length counts as none
    second.setFadeTimes(0, 0, 0);
    leaveFirst();
    frames(7); // four of them for the calls; no time passes
    EXPECT_EQ(machine.getPhase(), StatesMachine::FadeOut) << "0 by 0 is the end and not beyond it";
    EXPECT_EQ(first.getContentProgress(), 0);
    frame(1);
    EXPECT_EQ(machine.getPhase(), StatesMachine::CrossFade);
    frames(7, 1);
    EXPECT_TRUE(machine.isSettled());
    EXPECT_EQ(second.getContentProgress(), 1);
}

TEST_F(StatesMachineTest, AStateOnTopComesFromAboveAndGoesUpwards) {
    RecordingState top("top", told, State::DrawnOnTop);
    enter(first);
    machine.setActiveState(&top);
    EXPECT_TRUE(machine.isNewStateOnTop());
    enter(top);
    frames(40, 50);
    machine.setActiveState(&second);
    EXPECT_FALSE(machine.isNewStateOnTop()) << "the leaving one is above the new one";
    frames(4);
    frame(101);
    EXPECT_EQ(second.getOpacity(), 1);
    frame(83);
    EXPECT_NEAR(top.getOpacity(), 0.5, 0.01) << "and dissolves";
    EXPECT_EQ(drawn(), (Told{"second.render", "top.render"}));
}

TEST_F(StatesMachineTest, DrawsTheOldStateFirstAndLeavesOutTheInvisible) {
    leaveFirst();
    EXPECT_EQ(drawn(), (Told{"first.render"})) << "the new one is at opacity 0";
    frames(4);
    frame(101);
    frame(80);
    EXPECT_EQ(drawn(), (Told{"first.render", "second.render"}));
}

TEST_F(StatesMachineTest, FollowsARequestOnlyWhenIdle) {
    enter(first);
    RecordingState third("third", told);
    first.setTransition("second");
    frame();
    EXPECT_EQ(machine.getActiveState(), &second);
    second.setTransition("first");
    second.setTransition("<third");
    frame();
    EXPECT_EQ(machine.getActiveState(), &second) << "it waits for the fade";
    for (int32_t count = 0; count < 40 && machine.getActiveState() == &second; ++count)
        frame(50);
    EXPECT_EQ(machine.getActiveState(), &third) << "the later request counts, without its sign";
    EXPECT_FALSE(second.isTransitionRequested());
}

TEST_F(StatesMachineTest, ForgetsAnOldRequestOnEntering) {
    second.setTransition("first");
    enter(second);
    frames(3);
    EXPECT_EQ(machine.getActiveState(), &second);
    EXPECT_FALSE(second.isTransitionRequested());
}

TEST_F(StatesMachineTest, SaysOnceWhatItCannotFollow) {
    enter(first);
    LogCapture log;
    first.setTransition("nowhere");
    frames(5, 20);
    first.setTransition("first");
    frames(5, 20);
    first.setAutoTransition("nobody", 0);
    frames(5, 20);
    EXPECT_EQ(machine.getActiveState(), &first);
    EXPECT_EQ(log.linesWith("New state: NULL"), 2);
    for (const char* line :
         {"Requested state nowhere is unknown", "Requested state nobody is unknown",
          "New active state is already current state"})
        EXPECT_EQ(log.linesWith(line), 1) << line;
}

TEST_F(StatesMachineTest, FindsStatesByName) {
    EXPECT_EQ(machine.getState("<second"), &second);
    EXPECT_EQ(machine.getState("Second"), nullptr) << "names are case-sensitive";
    EXPECT_EQ(machine.getState("<"), nullptr) << "looked up as it is";
    RecordingState odd("<", told);
    EXPECT_EQ(machine.getState("<"), &odd);
    RecordingState twin("second", told);
    EXPECT_EQ(machine.getState("second"), &second) << "the first one keeps the name";
}

TEST_F(StatesMachineTest, ChangesByItself) {
    enter(first);
    first.setAutoTransition(&second, 3600);
    frame(1000);
    EXPECT_EQ(machine.getActiveState(), &first);
    first.setAutoTransition("second", 0);
    frame(1);
    EXPECT_EQ(machine.getActiveState(), &second);

    // The time counts from the change, not from the end of the fade, of about half a second.
    frames(40, 50);
    first.setAutoTransition(&second, 2);
    const uint32_t start = ManualClock::ticks();
    machine.setActiveState(&first);
    for (int32_t count = 0; count < 3000 && machine.getActiveState() == &first; ++count)
        frame(1);
    EXPECT_GT(ManualClock::ticks() - start, 2000U) << "only more than two seconds";
    EXPECT_LT(ManualClock::ticks() - start, 2010U);
}

TEST_F(StatesMachineTest, KeepsTheLast128Names) {
    for (int32_t count = 0; count < 130; ++count)
        machine.setActiveState(count % 2 == 0 ? &first : &second);
    ASSERT_EQ(machine.getHistory().size(), 128U);
    EXPECT_EQ(machine.getHistory().back(), "second");
}

TEST_F(StatesMachineTest, ForgetsAStateThatEnds) {
    enter(first);
    {
        RecordingState passing("passing", told);
        first.setAutoTransition(&passing, 1);
        HighLevelScheduler::getInstance().addTask(&passing, &passing);
        machine.setActiveState(&passing);
    }
    EXPECT_EQ(machine.findState("passing"), nullptr);
    EXPECT_EQ(HighLevelScheduler::getInstance().getTaskCount(), 0U);
    machine.setActiveState(&second);
    frames(40, 50);
    EXPECT_TRUE(machine.isSettled());
}

class CountingOverlay : public StateOverlay {
public:
    explicit CountingOverlay(Told& told) : told(told) {}
    void update() override {}
    void render() override {}
    void activate() override { told.emplace_back("activate"); }
    void deactivate() override { told.emplace_back("deactivate"); }
    void onFirstEnter() override { told.emplace_back("overlay.onFirstEnter"); }

private:
    Told& told;
};

TEST_F(StatesMachineTest, TellsAPictureThatTwoStatesShareOnce) {
    Told seen;
    CountingOverlay picture(seen);
    first.setBackgroundOverlay(&picture);
    second.setBackgroundOverlay(&picture);
    leaveFirst();
    EXPECT_TRUE(machine.sharesBackgroundOverlay());
    EXPECT_FALSE(machine.sharesForegroundOverlay()) << "none isn't the same as none";
    frames(40, 50);
    EXPECT_FALSE(machine.sharesBackgroundOverlay()) << "only during a transition";
    EXPECT_EQ(picture.getUserCount(), 1);
    EXPECT_EQ(seen, (Told{"overlay.onFirstEnter", "activate"})) << "its users never fell to 0";
}

} // namespace

} // namespace zel
