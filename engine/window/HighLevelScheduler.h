#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/String.h"
#include "engine/window/Timer.h"
#include "engine/window/UpdateObject.h"

namespace zel {

class State;

/// Divides a frame's time among tasks: by priority, by how long each has been taking, and by how
/// long it has been put off.
///
/// Tasks of priority 1 and 2 run in every frame. Those of 3 to 6 run if their estimated duration
/// fits into what is left of the frame; the estimate that has to fit shrinks with every frame of
/// lateness, so that none starves. Within a priority whatever ran goes to the back of the row.
class HighLevelScheduler {
public:
    static HighLevelScheduler& getInstance(); // built at the first use
    static bool exists();
    /// Ends it with all tasks; the next getInstance() builds a new one.
    static void destroy();

    /// Registers a task; with an owner it runs only while that state is active or being left.
    void addTask(UpdateAndRenderObject* object, State* ownerState);
    void addTask(UpdateObject* object, State* ownerState);
    /// Ends an object's task, also from within a pass. An unknown object is ignored, here and
    /// below.
    void removeTask(const UpdateObject* object);
    bool hasTask(const UpdateObject* object) const { return findTask(object) != nullptr; }
    size_t getTaskCount() const;
    /// Ends the tasks that the state owns, and forgets it wherever a task names it.
    void removeState(const State* state);

    void setTaskName(const UpdateObject* object, const String& name);
    /// 1 (first) to 6; 4 at first. With 6, a task without a least distance gets one of 100 frames.
    void setTaskPriority(const UpdateObject* object, int32_t priority);
    /// The task needs more than that many frames since it last ran.
    void setTaskMinFrameDifference(const UpdateObject* object, int32_t frames);
    /// Least time between two starts. On error: a log line.
    void specifyTasMinimumTimeDifference(const UpdateObject* object, float seconds); // sic
    /// A further state in which a task with an owner runs; one in which a task without doesn't.
    void addIncludedState(const UpdateObject* object, State* state);
    void addExcludedState(const UpdateObject* object, State* state);

    /// The render half of a frame: shows the picture drawn before, reads the input, draws the
    /// visible states. The time of the update half counts from its end.
    void render();
    /// One pass over the tasks.
    void run();
    /// Begins the frame's time anew, also from within a task: what passed before is held against
    /// neither the frame nor the task.
    void countTimeFromHere();

private:
    struct Task {
        UpdateObject* object = nullptr;
        RenderObject* renderObject = nullptr; // run if object is null
        String name;
        State* ownerState = nullptr; // may stay null
        bool ended = false;          // leaves the list before the next pass
        int32_t priority = 4;
        int32_t minFrameDifference = 0;
        int32_t framesSinceRun = 0;
        float minimumTimeDifference = 0; // seconds, as all below
        float averageDuration = 0;
        float lowEstimate = 0;  // quick to fall
        float highEstimate = 0; // quick to rise: what budget decisions use
        float lastDuration = 0;
        double lastRunTime = 0;
        std::vector<State*> includedStates;
        std::vector<State*> excludedStates;
    };

    HighLevelScheduler() = default;
    ~HighLevelScheduler() = default;
    friend struct std::default_delete<HighLevelScheduler>;

    const Task* findTask(const UpdateObject* object) const;
    Task* findTask(const UpdateObject* object);
    void runPriority(int32_t priority, std::vector<int32_t>& deferred);
    void runDeferred(std::vector<int32_t>& deferred);
    bool isActiveNow(const Task& task) const;
    bool fitsFrame(const Task& task);
    bool canComeThisFrame(const Task& task) const;
    bool tryToRun(int32_t index);
    void checkOverrun();
    void dropEndedTasks();

    int32_t targetFps = 60;
    float frameBudget = 1.0F / 60;   // seconds of one update half
    float budgetFraction = 0.85F;    // share of it that is planned with
    float starvationFrames = 100.0F; // frames of lateness at which a task no longer has to fit
    Timer clock;
    Timer taskTimer;
    std::vector<Task> tasks;
    int32_t tasksMade = 0; // since the start: numbers the names of those that were given none
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
