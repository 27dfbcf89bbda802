#pragma once

#include <utility>

#include "app/mission/SimulatorSearch.h"

/// The places of the simulator that the player chooses from: those that the search has found so
/// far, and the folder that he has picked himself, if it is none of them.
class SimulatorPlaces {
public:
    /// Searches again. What was found and picked before is forgotten.
    void lookAgain();
    /// Takes what the search has found meanwhile. True if the places have changed.
    bool update();
    /// Picks a folder of the machine and chooses it.
    void pick(const zel::String& folder);
    /// The next visit to the page shows the same places: the player has only gone to the folders.
    void keep() { isKept = true; }
    /// Whether this visit shows the same places; asked once a visit.
    bool takeKept() { return std::exchange(isKept, false); }

    bool isSearching() const { return search.isRunning(); }
    const std::vector<SimulatorPlace>& getPlaces() const { return places; }
    /// REQUIRES: index < getPlaces().size().
    void choose(size_t index) { chosen = places[index].folder; }
    /// The index of the chosen place, the first one until the player chooses; 0 without any.
    size_t getChosen() const;
    /// Empty without any place.
    zel::String chosenFolder() const;

    /// For tests: searches there from now on, in place of this machine. waits: each search is over
    /// before its page is shown.
    static void setRoots(const SearchRoots& roots, bool waits = true);
    /// It searches this machine again.
    static void resetRoots();

private:
    void gather();
    void followChosen();

    SimulatorSearch search;
    std::vector<SimulatorPlace> found; // by the search, up to the last update
    std::vector<SimulatorPlace> places;
    zel::String picked; // in the browser
    zel::String chosen; // by the player; empty for the first one
    bool isKept = false;
};
