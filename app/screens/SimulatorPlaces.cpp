#include "app/screens/SimulatorPlaces.h"

#include <algorithm>
#include <optional>

#include "app/screens/OwnStandIn.h"
#include "engine/core/SystemPlaces.h"

namespace {

struct TestRoots {
    SearchRoots roots;
    bool waits;
};

std::optional<TestRoots>& rootsOfTest() {
    static std::optional<TestRoots> roots;
    return roots;
}

bool isSameFolder(const zel::String& a, const zel::String& b) {
    if (a == b)
        return true;
    const zel::String path = zel::system::canonicalPath(a);
    return !path.empty() && path == zel::system::canonicalPath(b);
}

bool isSame(const std::vector<SimulatorPlace>& a, const std::vector<SimulatorPlace>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const SimulatorPlace& x, const SimulatorPlace& y) {
                          return x.folder == y.folder && x.foundBy == y.foundBy;
                      });
}

} // namespace

void SimulatorPlaces::setRoots(const SearchRoots& roots, bool waits) {
    rootsOfTest() = {roots, waits};
}
void SimulatorPlaces::resetRoots() { rootsOfTest().reset(); }

void SimulatorPlaces::lookAgain() {
    picked = chosen = {};
    search.start(rootsOfTest() ? rootsOfTest()->roots : SearchRoots::ofSystem());
    if (rootsOfTest() && rootsOfTest()->waits)
        search.wait();
    found = search.places();
    gather();
}

bool SimulatorPlaces::update() {
    std::vector<SimulatorPlace> now = search.places();
    if (isSame(now, found))
        return false;
    found = std::move(now);
    gather();
    return true;
}

void SimulatorPlaces::pick(const zel::String& folder) {
    picked = chosen = folder;
    gather();
}

void SimulatorPlaces::gather() {
    const zel::String standIn = OwnStandIn::folder();
    bool isPickedFound = picked.empty();
    places.clear();
    for (const SimulatorPlace& place : found) {
        if (isSameFolder(place.folder, standIn))
            continue;
        places.push_back(place);
        isPickedFound = isPickedFound || isSameFolder(place.folder, picked);
    }
    if (!isPickedFound)
        places.insert(places.begin(), {picked, FoundBy::Chosen});
    followChosen();
}

// The search may have found the chosen folder under another name.
void SimulatorPlaces::followChosen() {
    if (chosen.empty() || places.empty() || places[getChosen()].folder == chosen)
        return;
    for (const SimulatorPlace& place : places) {
        if (isSameFolder(place.folder, chosen)) {
            chosen = place.folder;
            return;
        }
    }
}

size_t SimulatorPlaces::getChosen() const {
    for (size_t i = 0; i < places.size(); ++i)
        if (places[i].folder == chosen)
            return i;
    return 0;
}

zel::String SimulatorPlaces::chosenFolder() const {
    return places.empty() ? zel::String() : places[getChosen()].folder;
}
