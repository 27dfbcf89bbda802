#include "engine/window/HighLevelScheduler.h"

#include <algorithm>
#include <functional>

#include <gtest/gtest.h>

#include "engine/window/StatesMachine.h"
#include "tests/engine/window/ManualClock.h"
#include "tests/engine/window/RecordingState.h"
#include "tests/support/LogCapture.h"

namespace zel {

namespace {

/// A task that writes its letter and takes some time by the test's clock.
class Task : public UpdateObject {
public:
    Task(char letter, std::string& ran, ManualClock& clock)
        : letter(letter), ran(ran), clock(clock) {}

    void update() override {
        ran += letter;
        clock.advance(duration);
        if (also)
            also();
    }

    uint32_t duration = 0; // milliseconds
    std::function<void()> also;

private:
    char letter;
    std::string& ran;
    ManualClock& clock;
};

class HighLevelSchedulerTest : public testing::Test {
protected:
    HighLevelSchedulerTest() {
        StatesMachine::getInstance().reset();
        HighLevelScheduler::destroy();
    }
    ~HighLevelSchedulerTest() override {
        HighLevelScheduler::destroy();
        StatesMachine::getInstance().reset();
    }

    HighLevelScheduler& scheduler() { return HighLevelScheduler::getInstance(); }
    /// The letters of the tasks that ran in that many passes.
    std::string pass(int32_t count = 1) {
        ran.clear();
        for (; count > 0; --count) {
            clock.advance(20);
            scheduler().render();
            scheduler().run();
        }
        return ran;
    }
    void add(Task& task, int32_t priority) {
        scheduler().addTask(&task, nullptr);
        scheduler().setTaskPriority(&task, priority);
    }

    LogCapture overruns; // which most of these tests make
    ManualClock clock;
    std::string ran;
    Task a{'a', ran, clock};
    Task b{'b', ran, clock};
    Task c{'c', ran, clock};
};

TEST_F(HighLevelSchedulerTest, RunsByPriority) {
    EXPECT_EQ(pass(), "") << "a pass without tasks";
    add(a, 4);
    add(b, 1);
    add(c, 2);
    EXPECT_EQ(pass(2), "bcabca");
    b.duration = 40; // more than a frame, and the rest has nothing left
    EXPECT_EQ(pass(3), "bcbcbc") << "the first two priorities run all the same";
}

TEST_F(HighLevelSchedulerTest, NobodyStarves) {
    add(a, 1);
    add(b, 3);
    a.duration = 40;
    // It falls due in the first pass; after 100 late ones the time no longer matters.
    const std::string all = pass(102);
    EXPECT_EQ(all.find('b'), 102U) << "in the 102nd pass, after 102 of the other's";
    EXPECT_EQ(std::count(all.begin(), all.end(), 'b'), 1);
}

// 85 percent of a sixtieth of a second are 14.17 ms.
TEST_F(HighLevelSchedulerTest, PlansWithAPartOfTheFrame) {
    add(a, 1);
    add(b, 3);
    a.duration = 15;
    EXPECT_EQ(pass(), "a");
    a.duration = 14;
    EXPECT_EQ(pass(), "ab");
}

TEST_F(HighLevelSchedulerTest, EstimatesByAQuarterOfALongerRun) {
    for (const auto& [other, runs] : {std::pair(4U, "ab"), {5U, "a"}}) {
        HighLevelScheduler::destroy();
        add(a, 1);
        add(b, 3);
        a.duration = 0;
        b.duration = 40; // from 0 to an estimate of 10 ms
        EXPECT_EQ(pass(), "ab");
        a.duration = other; // 10.17 or 9.17 ms are left
        EXPECT_EQ(pass(), runs) << other;
    }
    a.duration = b.duration = 0;
    EXPECT_EQ(pass(), "ab");
    a.duration = 5; // 9.17 ms are left
    EXPECT_EQ(pass(), "a") << "a shorter run took only a hundredth off the 10 ms";
}

TEST_F(HighLevelSchedulerTest, NeedsLessTimeTheLaterItIs) {
    for (const int32_t distance : {0, 5}) {
        HighLevelScheduler::destroy();
        add(a, 1);
        add(b, 3);
        scheduler().setTaskMinFrameDifference(&b, distance);
        a.duration = 0;
        b.duration = 40;
        EXPECT_EQ(pass(distance + 1).back(), 'b');
        a.duration = 5;
        // 9.17 ms are left, the estimate is 10: nine late frames take 9 percent off.
        const std::string all = pass(distance + 10);
        EXPECT_EQ(all.find('b'), static_cast<size_t>(distance) + 10) << distance;
    }
}

TEST_F(HighLevelSchedulerTest, TheLowestPriorityRunsOnceIn101Frames) {
    add(a, 6);
    EXPECT_EQ(pass(101), "a");
    EXPECT_EQ(pass(100), "");
    EXPECT_EQ(pass(1), "a");
}

TEST_F(HighLevelSchedulerTest, TasksOfWhichOneFitsTakeTurns) {
    add(a, 4);
    add(b, 4);
    a.duration = b.duration = 12; // one fills the planned part of a frame, 14 ms
    pass(40);                     // until the estimates have grown
    const std::string turns = pass(6);
    EXPECT_TRUE(turns == "ababab" || turns == "bababa") << turns;
}

TEST_F(HighLevelSchedulerTest, WaitsForAMomentThatComesInTheSamePass) {
    add(a, 4);
    scheduler().specifyTasMinimumTimeDifference(&a, 0.021F);
    pass();
    EXPECT_EQ(pass(), "a") << "due one millisecond after the pass reached it";
}

TEST_F(HighLevelSchedulerTest, DoesNotWaitForAMomentFarAway) {
    add(a, 4);
    scheduler().specifyTasMinimumTimeDifference(&a, 5);
    const uint32_t before = ManualClock::ticks();
    pass(101 + 20); // even once it is so late that it needs no time of the frame
    EXPECT_LT(ManualClock::ticks() - before, 121U * 21);
    EXPECT_EQ(ran, "");
    clock.advance(5000 - 20 - 40 - (ManualClock::ticks() - before));
    EXPECT_EQ(pass(), "") << "40 ms are more than a pass plans";
    clock.advance(5000);
    EXPECT_EQ(pass(), "a");
}

TEST_F(HighLevelSchedulerTest, OwnedTasksRunWithTheirStates) {
    std::vector<std::string> told;
    RecordingState mine("mine", told);
    RecordingState guest("guest", told);
    RecordingState other("other", told);
    StatesMachine& machine = StatesMachine::getInstance();
    scheduler().addTask(&a, &mine);
    scheduler().addIncludedState(&a, &guest);
    scheduler().addTask(&b, nullptr);
    scheduler().addExcludedState(&b, &other);
    EXPECT_EQ(pass(), "b");
    machine.setActiveState(&guest);
    EXPECT_EQ(pass(), "ab") << "as a guest, with no other state about";
    machine.setActiveState(&mine);
    EXPECT_EQ(pass(), "ab");
    machine.setActiveState(&other);
    EXPECT_EQ(pass(), "ab") << "the state that is being left counts as well";
    scheduler().addExcludedState(&b, &mine);
    EXPECT_EQ(pass(), "a") << "both are excluded";
}

TEST_F(HighLevelSchedulerTest, TasksComeAndGoDuringAPass) {
    add(a, 1);
    add(b, 2);
    a.also = [this] {
        scheduler().removeTask(&b);
        if (!scheduler().hasTask(&c))
            for (int32_t count = 0; count < 40; ++count) // enough to move the list
                scheduler().addTask(&c, nullptr);
    };
    EXPECT_EQ(pass(), "a");
    EXPECT_EQ(pass(), "a" + std::string(40, 'c'));
    EXPECT_EQ(scheduler().getTaskCount(), 41U);
    a.also = [this] { scheduler().removeTask(&a); };
    pass();
    EXPECT_FALSE(scheduler().hasTask(&a));
    EXPECT_EQ(pass(), std::string(40, 'c'));
}

TEST_F(HighLevelSchedulerTest, ReportsAnOverrunOnceAFrame) {
    add(a, 1);
    add(b, 2);
    scheduler().setTaskName(&a, "slow");
    a.duration = b.duration = 30;
    LogCapture log;
    pass();
    EXPECT_TRUE(log.holds("[HighLevelScheduler] Last task slow took too long: 0.03 secs, total: "
                          "0.03 secs"))
        << log.text();
    EXPECT_EQ(log.linesWith("took too long"), 1);
}

} // namespace

} // namespace zel
