#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "app/mission/SearchRoots.h"
#include "engine/core/String.h"

/// How a folder was found. If in several ways, the first one counts.
enum class FoundBy : int32_t { LastTime, Chosen, Registry, Steam, Proton, Wine, Drive };
constexpr int32_t FoundByCount = static_cast<int32_t>(FoundBy::Drive) + 1;
/// A word to put before a path, in the language in use.
zel::String foundByText(FoundBy foundBy);

/// A folder with the simulator in it: it has data/startup.cfg.
struct SimulatorPlace {
    zel::String folder; // from the root, as the system names files, without a trailing separator
    FoundBy foundBy;
};

struct SearchBounds {
    uint32_t milliseconds = 2000; // of the whole search
    int32_t folders = 30000;      // that are listed
    size_t places = 50;           // that are found
};

/// Searches for the simulator in a thread of its own, so that a slow disk delays nothing: where it
/// was before, where the registry says, in Steam's libraries, in the prefixes of Wine and Proton,
/// and on the disks. Folders that can't be read are passed over, links are followed once, and a
/// place that is found under two names is listed once.
class SimulatorSearch {
public:
    SimulatorSearch() = default;
    /// Ends the search.
    ~SimulatorSearch() { stop(); }
    SimulatorSearch(const SimulatorSearch&) = delete;
    SimulatorSearch& operator=(const SimulatorSearch&) = delete;

    /// Begins the search, again if one was begun before.
    void start(const SearchRoots& roots = SearchRoots::ofSystem(), const SearchBounds& bounds = {});
    /// Whether it may still find something. False at the latest when its time is over, also if a
    /// disk doesn't answer.
    bool isRunning() const;
    /// Waits until it is over, at most for its time.
    void wait() const;
    /// What was found so far, in the order of FoundBy.
    std::vector<SimulatorPlace> places() const;
    /// Whether it is over and ended neither by its bounds nor by stop().
    bool isWhole() const;
    /// Ends the search; what was found stays.
    void stop();

private:
    struct SharedState;
    std::shared_ptr<SharedState> state; // shared with the thread, which may outlive this
};

/// The whole search at once, within its bounds.
std::vector<SimulatorPlace> findSimulators(const SearchRoots& roots = SearchRoots::ofSystem(),
                                           const SearchBounds& bounds = {});
