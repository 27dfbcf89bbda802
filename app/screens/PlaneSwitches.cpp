#include "app/screens/PlaneSwitches.h"

#include <algorithm>

#include "app/career/Aircraft.h"

namespace {

/// The indices of a side's planes.
std::vector<int32_t> planesOf(bool allied) {
    std::vector<int32_t> planes;
    for (int32_t i = 0; i < int32_t(planeIdentifiers().size()); ++i)
        if (isAlliedPlane(i) == allied)
            planes.push_back(i);
    return planes;
}

} // namespace

int32_t planeSheets(bool allied) {
    const auto count = int32_t(planesOf(allied).size());
    return std::max((count + PlanesPerSheet - 1) / PlanesPerSheet, 1);
}

std::vector<Switch> planeSwitches(bool allied, int32_t sheet) {
    const std::vector<int32_t> planes = planesOf(allied);
    const int32_t first = (sheet - 1) * PlanesPerSheet;
    const int32_t last = std::min(first + PlanesPerSheet, int32_t(planes.size()));
    std::vector<Switch> switches;
    for (int32_t i = first; i < last; ++i)
        switches.push_back({zel::String("item") + (i - first + 1), planeIdentifiers()[planes[i]],
                            &wording::Plane, planeDisplayNames()[planes[i]]});
    return switches;
}
