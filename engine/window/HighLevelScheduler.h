#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/String.h"
#include "engine/window/Timer.h"
#include "engine/window/UpdateObject.h"

namespace zel {

class State;

/// Divides a frame's time among tasks: by priority, by how long each has been taking, and by how
/// long it has waited.
///
/// Tasks of priority 1 and 2 run in every frame. Those of 3 to 6 run if their estimated duration
/// fits into the rest of the frame; the estimate shrinks with every frame of lateness, so that none
/// starves. Within a priority, a task that has run goes to the back of the queue.
class HighLevelScheduler {
public:
    static HighLevelScheduler& getInstance(); // built at first use
    static bool exists();
    /// Ends it and all its tasks; the next getInstance() builds a new one.
    static void destroy();

    /// Registers a task; with an owner it runs only while that state is active or being left.
    void addTask(UpdateAndRenderObject* object, State* ownerState);
    void addTask(UpdateObject* object, State* ownerState);
    /// Ends an object's task, even from within a pass. An unknown object is ignored, here and
    /// below.
    void removeTask(const UpdateObject* object);
    bool hasTask(const UpdateObject* object) const { return findTask(object) != nullptr; }
    size_t getTaskCount() const; // without ended ones
    /// Ends the tasks that the state owns, and removes it from the lists of others.
    void removeState(const State* state);

    void setTaskName(const UpdateObject* object, const String& name);
    /// 1 (first) to 6; initially 4. 6 also sets a minimum of 100 frames on a task without one.
    void setTaskPriority(const UpdateObject* object, int32_t priority);
    /// The task needs more than that many frames since it last ran.
    void setTaskMinFrameDifference(const UpdateObject* object, int32_t frames);
    /// Minimum time between two starts. On error: a log line.
    void specifyTasMinimumTimeDifference(const UpdateObject* object, float seconds); // sic
    /// For a task with an owner, another state in which it runs; for a task without one, a state in
    /// which it doesn't. The task runs if the active state or the one being left allows it. Outside
    /// a transition the latter is null, which counts as a state that isn't excluded.
    void addIncludedState(const UpdateObject* object, State* state);
    void addExcludedState(const UpdateObject* object, State* state);

    /// The render half of a frame: shows the picture drawn before, takes the input, draws the
    /// visible states. The time of the update half starts at its end.
    void render();
    /// One pass over the tasks.
    void run();
    /// Restarts the frame's time, even from within a task: time before counts neither for the frame
    /// nor for the task.
    void countTimeFromHere();

private:
    struct ScheduledTask {
        UpdateObject* object = nullptr;
        RenderObject* renderObject = nullptr; // run if object is null
        String name;
        State* ownerState = nullptr; // may be null
        bool ended = false;          // removed before the next pass
        int32_t priority = 4;
        int32_t minFrameDifference = 0;
        int32_t framesSinceRun = 0;
        float minimumTimeDifference = 0; // seconds, as all below
        float averageDuration = 0;
        float lowEstimate = 0;  // quick to fall
        float highEstimate = 0; // quick to rise; budget decisions use it
        float lastDuration = 0;
        double lastRunTime = 0;
        std::vector<State*> includedStates;
        std::vector<State*> excludedStates;
    };

    HighLevelScheduler() = default;
    ~HighLevelScheduler() = default;
    friend struct std::default_delete<HighLevelScheduler>;

    const ScheduledTask* findTask(const UpdateObject* object) const;
    ScheduledTask* findTask(const UpdateObject* object);
    void runPriority(int32_t priority, std::vector<int32_t>& deferred);
    void runDeferred(std::vector<int32_t>& deferred);
    bool isActiveNow(const ScheduledTask& task) const;
    bool fitsFrame(const ScheduledTask& task);
    bool canComeThisFrame(const ScheduledTask& task) const;
    bool tryToRun(int32_t index);
    void checkOverrun();
    void dropEndedTasks();

    int32_t targetFps = 60;
    float frameBudget = 1.0F / 60;   // seconds of one update half
    float budgetFraction = 0.85F;    // share of it that is planned
    float starvationFrames = 100.0F; // frames of lateness at which a task no longer has to fit
    Timer clock;
    Timer taskTimer;
    std::vector<ScheduledTask> tasks;
    int32_t tasksMade = 0;          // since the start, for default names
    std::vector<int32_t> runOrder;  // indices of tasks, in the order of visiting
    std::vector<int32_t> nextOrder; // the same for the next frame
    int32_t lastTask = -1;          // index of the last task run
    bool started = false;
    bool hasEndedTasks = false;
    double startTime = 0;  // seconds of `clock`
    double frameStart = 0; // the same
    bool overBudget = false;
    bool overrunReported = false;
    bool frameFlagA = false;
    bool frameFlagB = false;
};

} // namespace zel
