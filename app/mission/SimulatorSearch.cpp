#include "app/mission/SimulatorSearch.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <iterator>
#include <mutex>
#include <system_error>
#include <thread>

#include "app/mission/SimulatorWalk.h"
#include "app/mission/SimulatorWording.h"
#include "engine/core/SystemPlaces.h"

namespace {

// The engine's clock may be stopped, while the disks take their time all the same.
using Time = std::chrono::steady_clock;
using std::chrono::milliseconds;

} // namespace

static_assert(std::size(wording::FoundByNames) == FoundByCount);

zel::String foundByText(FoundBy foundBy) {
    return textOf(wording::FoundByNames[static_cast<int32_t>(foundBy)]);
}

struct SimulatorSearch::SharedState {
    mutable std::mutex mutex;
    std::condition_variable changed;
    std::vector<SimulatorPlace> places;
    bool isDone = false;
    bool isWhole = false;
    std::atomic<bool> isStopped{false};
    const Time::time_point started = Time::now();
    SearchRoots roots;
    SearchBounds bounds;

    void run();
};

void SimulatorSearch::SharedState::run() {
    // A little less, so that the caller who waits still sees how it ended.
    const milliseconds most(bounds.milliseconds - bounds.milliseconds / 20);
    if (roots.addsLocalDrives)
        for (const zel::String& drive : zel::system::localDrives())
            roots.drives.push_back(drive);
    SimulatorWalk walk(
        bounds,
        [this](const SimulatorPlace& place) {
            const std::lock_guard<std::mutex> lock(mutex);
            places.push_back(place);
        },
        [&] { return !isStopped && Time::now() - started < most; });
    const bool isComplete = walk.run(roots);
    const std::lock_guard<std::mutex> lock(mutex);
    isWhole = isComplete;
    isDone = true;
    changed.notify_all();
}

// The thread is never joined: a disk that doesn't answer would hold up the program's end.
void SimulatorSearch::start(const SearchRoots& roots, const SearchBounds& bounds) {
    stop();
    state = std::make_shared<SharedState>();
    state->roots = roots;
    state->bounds = bounds;
    try {
        std::thread([shared = state] { shared->run(); }).detach();
    } catch (const std::system_error&) {
        state->run(); // the system has no thread left
    }
}

bool SimulatorSearch::isRunning() const {
    if (state == nullptr || state->isStopped)
        return false;
    const std::lock_guard<std::mutex> lock(state->mutex);
    return !state->isDone &&
           Time::now() - state->started < milliseconds(state->bounds.milliseconds);
}

void SimulatorSearch::wait() const {
    if (state == nullptr)
        return;
    std::unique_lock<std::mutex> lock(state->mutex);
    state->changed.wait_for(lock, milliseconds(state->bounds.milliseconds),
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
