#include "app/screens/PlaneSwitches.h"

#include "app/career/Aircraft.h"

namespace {

constexpr int32_t PlanesPerPage = 12;

} // namespace

std::vector<Switch> planeSwitches(int32_t first) {
    std::vector<Switch> switches;
    for (int32_t i = 0; i < PlanesPerPage && first + i < PlaneCount; ++i) {
        const auto plane = static_cast<size_t>(first) + static_cast<size_t>(i);
        switches.push_back(
            {zel::String("item") + (i + 1), planeDisplayNames()[plane], planeIdentifiers()[plane]});
    }
    return switches;
}
