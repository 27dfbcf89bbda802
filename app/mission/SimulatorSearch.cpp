#include "app/mission/SimulatorSearch.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

#include "app/mission/SimulatorWalk.h"
#include "app/mission/SimulatorWording.h"
#include "engine/core/Clock.h"

zel::String foundByText(FoundBy foundBy) {
    return textOf(wording::FoundByNames[static_cast<int32_t>(foundBy)]);
}

struct SimulatorSearch::State {
    mutable std::mutex mutex;
    std::condition_variable changed;
    std::vector<SimulatorPlace> places;
    bool isDone = false;
    bool isWhole = false;
    int32_t listed = 0;
    std::atomic<bool> isStopped{false};
    SearchRoots roots;
    SearchBounds bounds;

    void run();
};

void SimulatorSearch::State::run() {
    // A little less, so that whoever waits still sees how it ended.
    const uint32_t most = bounds.milliseconds - bounds.milliseconds / 20;
    const uint32_t begun = zel::ticks();
    SimulatorWalk walk(
        bounds,
        [this](const SimulatorPlace& place) {
            const std::lock_guard<std::mutex> lock(mutex);
            places.push_back(place);
        },
        [&] { return !isStopped && zel::ticks() - begun < most; });
    const bool isComplete = walk.run(roots);
    const std::lock_guard<std::mutex> lock(mutex);
    isWhole = isComplete;
    listed = walk.listedFolders();
    isDone = true;
    changed.notify_all();
}

// The thread is never joined: a disk that doesn't answer would hold up the program's end.
void SimulatorSearch::start(const SearchRoots& roots, const SearchBounds& bounds) {
    stop();
    state = std::make_shared<State>();
    state->roots = roots;
    state->bounds = bounds;
    started = zel::ticks();
    try {
        std::thread([shared = state] { shared->run(); }).detach();
    } catch (const std::system_error&) {
        state->run(); // no thread can be had
    }
}

bool SimulatorSearch::isRunning() const {
    if (state == nullptr || state->isStopped)
        return false;
    const std::lock_guard<std::mutex> lock(state->mutex);
    return !state->isDone && zel::ticks() - started < state->bounds.milliseconds;
}

void SimulatorSearch::wait() const {
    if (state == nullptr)
        return;
    std::unique_lock<std::mutex> lock(state->mutex);
    state->changed.wait_for(lock, std::chrono::milliseconds(state->bounds.milliseconds),
                            [this] { return state->isDone || state->isStopped; });
}

std::vector<SimulatorPlace> SimulatorSearch::places() const {
    if (state == nullptr)
        return {};
    std::unique_lock<std::mutex> lock(state->mutex);
    std::vector<SimulatorPlace> sorted = state->places;
    lock.unlock();
    std::stable_sort(
        sorted.begin(), sorted.end(),
        [](const SimulatorPlace& a, const SimulatorPlace& b) { return a.foundBy < b.foundBy; });
    return sorted;
}

bool SimulatorSearch::isWhole() const {
    if (state == nullptr)
        return false;
    const std::lock_guard<std::mutex> lock(state->mutex);
    return state->isWhole;
}

int32_t SimulatorSearch::listedFolders() const {
    if (state == nullptr)
        return 0;
    const std::lock_guard<std::mutex> lock(state->mutex);
    return state->listed;
}

void SimulatorSearch::stop() {
    if (state != nullptr)
        state->isStopped = true;
}

std::vector<SimulatorPlace> findSimulators(const SearchRoots& roots, const SearchBounds& bounds) {
    SimulatorSearch search;
    search.start(roots, bounds);
    search.wait();
    return search.places();
}
