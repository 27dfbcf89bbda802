#pragma once

#include <deque>
#include <functional>
#include <set>

#include "app/mission/SimulatorSearch.h"

/// The walk of one search: what it looks at, in which order, and when it ends. It uses nothing that
/// another thread may change, and writes no log lines.
class SimulatorWalk {
public:
    /// found: takes each new place. mayGoOn: false ends the walk.
    SimulatorWalk(const SearchBounds& bounds, std::function<void(SimulatorPlace)> found,
                  std::function<bool()> mayGoOn)
        : bounds(bounds), found(std::move(found)), mayGoOn(std::move(mayGoOn)) {}

    /// Walks everything. False if it ended early.
    bool run(const SearchRoots& roots);

private:
    struct Pending {
        zel::String folder;
        int32_t depth; // how many folders further down it goes
        FoundBy foundBy;
    };

    void checkFolder(const zel::String& folder, FoundBy foundBy);
    void lookInSteam(const zel::String& steam);
    void lookInLibrary(const zel::String& library);
    void lookInPrefix(const zel::String& prefix, FoundBy foundBy);
    void lookInPrefixes(const zel::String& folder, const zel::String& inner, FoundBy foundBy);
    void lookInLutris(const zel::String& folder);
    void lookOnDrive(const zel::String& drive);
    void walk();
    void visit(const Pending& pending);
    /// The names of the folders in a folder, sorted; none if it can't be read or the walk is over.
    std::vector<zel::String> foldersIn(const zel::String& folder);
    bool isOver();

    const SearchBounds bounds;
    std::function<void(SimulatorPlace)> found;
    std::function<bool()> mayGoOn;
    std::deque<Pending> queue;
    std::set<zel::String> visited;   // canonical paths of what the walk has listed
    std::set<zel::String> libraries; // of Steam, canonical
    std::set<zel::String> known;     // canonical paths of the places
    int32_t listed = 0;
    bool isCut = false;
};
