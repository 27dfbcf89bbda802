#include "engine/window/HighLevelScheduler.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "engine/core/Log.h"
#include "engine/window/State.h"
#include "engine/window/StatesMachine.h"
#include "engine/window/Window.h"

namespace zel {

namespace {

constexpr const char* SchedulerCategory = "HighLevelScheduler";
constexpr int32_t LowestPriority = 6;
constexpr int32_t FirstBudgetedPriority = 3; // those before it always run
constexpr int32_t IdleFrames = 100;          // minimum for the lowest priority
// How often waiting for a deferred task may find the clock unchanged before it gives up: a stopped
// clock, as in a test, must not hang the program.
constexpr int32_t StandstillRounds = 100000;

std::unique_ptr<HighLevelScheduler> taskScheduler;

template <typename T> void addOnce(std::vector<T>& list, T value) {
    if (std::find(list.begin(), list.end(), value) == list.end())
        list.push_back(value);
}

template <typename T> void removeAll(std::vector<T>& list, const T& value) {
    list.erase(std::remove(list.begin(), list.end(), value), list.end());
}

template <typename T> bool contains(const std::vector<T>& list, T value) {
    return std::find(list.begin(), list.end(), value) != list.end();
}

/// The mean moved towards the new value by that share.
float smoothed(float mean, float value, float share) { return (1 - share) * mean + share * value; }

} // namespace

HighLevelScheduler& HighLevelScheduler::getInstance() {
    if (taskScheduler == nullptr)
        taskScheduler.reset(new HighLevelScheduler);
    return *taskScheduler;
}

bool HighLevelScheduler::exists() { return taskScheduler != nullptr; }
void HighLevelScheduler::destroy() { taskScheduler.reset(); }

void HighLevelScheduler::addTask(UpdateAndRenderObject* object, State* ownerState) {
    addTask(static_cast<UpdateObject*>(object), ownerState);
}

void HighLevelScheduler::addTask(UpdateObject* object, State* ownerState) {
    const auto index = static_cast<int32_t>(tasks.size());
    ScheduledTask task;
    task.object = object;
    task.name = "task " + String(++tasksMade);
    task.ownerState = ownerState;
    tasks.push_back(task);
    runOrder.push_back(index);
    nextOrder.push_back(index);
}

// Only marked here: a pass may be iterating over the lists.
void HighLevelScheduler::removeTask(const UpdateObject* object) {
    for (ScheduledTask& task : tasks)
        if (object != nullptr && task.object == object) {
            task.object = nullptr;
            task.renderObject = nullptr;
            task.ended = true;
            hasEndedTasks = true;
        }
}

void HighLevelScheduler::removeState(const State* state) {
    removeTask(state);
    for (ScheduledTask& task : tasks) {
        if (state != nullptr && task.ownerState == state)
            removeTask(task.object);
        removeAll(task.includedStates, const_cast<State*>(state));
        removeAll(task.excludedStates, const_cast<State*>(state));
    }
}

void HighLevelScheduler::dropEndedTasks() {
    if (!hasEndedTasks)
        return;
    hasEndedTasks = false;
    std::vector<int32_t> newIndex(tasks.size(), -1); // by the old one; -1 for an ended task
    int32_t count = 0;
    for (size_t index = 0; index < tasks.size(); ++index)
        if (!tasks[index].ended)
            newIndex[index] = count++;
    tasks.erase(std::remove_if(tasks.begin(), tasks.end(),
                               [](const ScheduledTask& task) { return task.ended; }),
                tasks.end());
    for (std::vector<int32_t>* order : {&runOrder, &nextOrder}) {
        for (int32_t& index : *order)
            index = newIndex[index];
        removeAll(*order, -1);
    }
    lastTask = lastTask >= 0 ? newIndex[lastTask] : -1;
}

size_t HighLevelScheduler::getTaskCount() const {
    return static_cast<size_t>(std::count_if(
        tasks.begin(), tasks.end(), [](const ScheduledTask& task) { return !task.ended; }));
}

const HighLevelScheduler::ScheduledTask*
HighLevelScheduler::findTask(const UpdateObject* object) const {
    const auto* const asRender = dynamic_cast<const RenderObject*>(object);
    for (const ScheduledTask& task : tasks)
        if (!task.ended && object != nullptr &&
            (task.object == object || (asRender != nullptr && task.renderObject == asRender)))
            return &task;
    return nullptr;
}

HighLevelScheduler::ScheduledTask* HighLevelScheduler::findTask(const UpdateObject* object) {
    return const_cast<ScheduledTask*>(std::as_const(*this).findTask(object));
}

void HighLevelScheduler::setTaskName(const UpdateObject* object, const String& name) {
    if (ScheduledTask* task = findTask(object))
        task->name = name;
}

void HighLevelScheduler::setTaskPriority(const UpdateObject* object, int32_t priority) {
    ScheduledTask* task = findTask(object);
    if (task == nullptr)
        return;
    task->priority = std::clamp(priority, 1, LowestPriority);
    if (task->priority == LowestPriority && task->minFrameDifference == 0)
        task->minFrameDifference = IdleFrames;
}

void HighLevelScheduler::setTaskMinFrameDifference(const UpdateObject* object, int32_t frames) {
    if (ScheduledTask* task = findTask(object))
        task->minFrameDifference = frames;
}

void HighLevelScheduler::specifyTasMinimumTimeDifference(const UpdateObject* object,
                                                         float seconds) {
    if (ScheduledTask* task = findTask(object))
        task->minimumTimeDifference = seconds;
    else
        log("specifyTasMinimumTimeDifference task not found", SchedulerCategory, LogWarning); // sic
}

void HighLevelScheduler::addIncludedState(const UpdateObject* object, State* state) {
    if (ScheduledTask* task = findTask(object))
        addOnce(task->includedStates, state);
}

void HighLevelScheduler::addExcludedState(const UpdateObject* object, State* state) {
    if (ScheduledTask* task = findTask(object))
        addOnce(task->excludedStates, state);
}

void HighLevelScheduler::render() {
    taskTimer.reset();
    if (Window* window = Window::current())
        window->swapBuffers();
    StatesMachine::getInstance().render();
    countTimeFromHere();
    frameFlagB = false;
    frameFlagA = true;
}

void HighLevelScheduler::countTimeFromHere() {
    taskTimer.reset();
    frameStart = clock.getSeconds();
}

void HighLevelScheduler::run() {
    overBudget = false;
    overrunReported = false;
    dropEndedTasks();
    for (ScheduledTask& task : tasks)
        ++task.framesSinceRun;
    if (!started) {
        started = true;
        startTime = clock.getSeconds();
    }
    std::vector<int32_t> deferred;
    for (int32_t priority = 1; priority <= LowestPriority; ++priority)
        runPriority(priority, deferred);
    runDeferred(deferred);
    frameStart = clock.getSeconds();
    runOrder = nextOrder;
}

// By index throughout: a task may add others, which reallocates both lists.
void HighLevelScheduler::runPriority(int32_t priority, std::vector<int32_t>& deferred) {
    for (size_t place = 0; place < runOrder.size(); ++place) {
        const int32_t index = runOrder[place];
        const ScheduledTask& task = tasks[index];
        if (task.ended || task.priority != priority ||
            task.minFrameDifference >= task.framesSinceRun || !isActiveNow(task) ||
            (priority >= FirstBudgetedPriority && !fitsFrame(task)))
            continue;
        if (tryToRun(index)) {
            removeAll(nextOrder, index);
            nextOrder.push_back(index);
        } else {
            deferred.push_back(index);
        }
    }
}

// Spins for tasks whose moment comes within this frame.
void HighLevelScheduler::runDeferred(std::vector<int32_t>& deferred) {
    int32_t standstill = 0;
    double lastTime = clock.getSeconds();
    while (!deferred.empty() && standstill < StandstillRounds) {
        const auto isDone = [this](int32_t index) {
            const ScheduledTask& task = tasks[index];
            return task.ended || !fitsFrame(task) || !canComeThisFrame(task) || tryToRun(index);
        };
        deferred.erase(std::remove_if(deferred.begin(), deferred.end(), isDone), deferred.end());
        const double now = clock.getSeconds();
        standstill = now == lastTime ? standstill + 1 : 0;
        lastTime = now;
    }
}

bool HighLevelScheduler::isActiveNow(const ScheduledTask& task) const {
    const StatesMachine& machine = StatesMachine::getInstance();
    for (State* state : {machine.getActiveState(), machine.getPreviousState()}) {
        if (task.ownerState == nullptr
                ? !contains(task.excludedStates, state)
                : state == task.ownerState || contains(task.includedStates, state))
            return true;
    }
    return false;
}

bool HighLevelScheduler::fitsFrame(const ScheduledTask& task) {
    const double passed = clock.getSeconds() - frameStart;
    const int32_t late = std::max(0, task.framesSinceRun - 1 - task.minFrameDifference);
    const float share = 1 - static_cast<float>(late) / starvationFrames;
    if (share < 0)
        return true;
    const double remaining = static_cast<double>(frameBudget * budgetFraction) - passed;
    if (remaining > static_cast<double>(share * task.highEstimate))
        return true;
    if (remaining < 0)
        overBudget = true;
    return false;
}

bool HighLevelScheduler::canComeThisFrame(const ScheduledTask& task) const {
    const double moment = task.lastRunTime + static_cast<double>(task.minimumTimeDifference);
    return moment <= frameStart + static_cast<double>(frameBudget * budgetFraction) ||
           moment <= clock.getSeconds();
}

bool HighLevelScheduler::tryToRun(int32_t index) {
    const double now = clock.getSeconds();
    {
        ScheduledTask& task = tasks[index];
        if (now < task.lastRunTime + static_cast<double>(task.minimumTimeDifference))
            return false;
        task.lastRunTime = now;
        taskTimer.reset();
        lastTask = index;
        if (task.object != nullptr)
            task.object->update();
        else if (task.renderObject != nullptr)
            task.renderObject->render();
        else
            lastTask = -1;
        taskTimer.stop();
    }
    // Looked up again: the call may have added tasks.
    ScheduledTask& task = tasks[index];
    const auto duration = static_cast<float>(taskTimer.getSeconds());
    task.framesSinceRun = 0;
    task.lastDuration = duration;
    task.averageDuration = smoothed(task.averageDuration, duration, 0.01F);
    task.lowEstimate = duration < task.lowEstimate
                           ? smoothed(task.lowEstimate, duration, 0.25F)
                           : smoothed(task.lowEstimate, task.averageDuration, 0.01F);
    task.highEstimate = duration > task.highEstimate
                            ? smoothed(task.highEstimate, duration, 0.25F)
                            : smoothed(task.highEstimate, task.averageDuration, 0.01F);
    checkOverrun();
    return true;
}

void HighLevelScheduler::checkOverrun() {
    if (overrunReported)
        return;
    const double passed = clock.getSeconds() - frameStart;
    if (!(passed > static_cast<double>(frameBudget)))
        return;
    overrunReported = true;
    if (lastTask < 0) {
        log("Last unknown task took too long", SchedulerCategory, LogWarning);
        return;
    }
    const ScheduledTask& task = tasks[lastTask];
    log("Last task " + task.name + " took too long: " + formatFloat(task.lastDuration) +
            " secs, total: " + formatFloat(static_cast<float>(passed)) + " secs",
        SchedulerCategory, LogWarning);
}

} // namespace zel
