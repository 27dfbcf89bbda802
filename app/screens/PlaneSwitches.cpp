#include "app/screens/PlaneSwitches.h"

#include "app/career/Aircraft.h"

std::vector<Switch> planeSwitches(bool allied) {
    std::vector<Switch> switches;
    for (size_t i = 0; i < planeIdentifiers().size(); ++i)
        if (isAlliedPlane(static_cast<int32_t>(i)) == allied)
            switches.push_back({zel::String("item") + (static_cast<int32_t>(switches.size()) + 1),
                                planeIdentifiers()[i], &wording::Plane, planeDisplayNames()[i]});
    return switches;
}
