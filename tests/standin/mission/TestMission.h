#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "standin/mission/MissionReader.h"

namespace standin {

/// A plane of a mission that a test makes.
struct TestPlane {
    std::string name;
    int32_t country;
    std::string type;
    int32_t level; // 0 the human
};

/// A mission's whole text, as a generator for the simulator would write it: two flights head on,
/// 2600 m apart, each led by its first plane. Planes get the indices 11, 13, 15 and so on, their
/// entities the ones after; the logic has 1 to 3.
std::string missionText(const std::vector<TestPlane>& planes, bool inAir = true);

/// Three against three in spring 1918, the human first.
std::vector<TestPlane> sixPlanes();
/// missionText of a human and one enemy, for tests that edit it.
std::string smallMission();

/// An objective of that index at the position 1.5, 2, 3, to be put before the file's last line.
std::string objectiveText(int32_t index);

/// The mission of a text; fails the test if it is refused.
Mission readMission(const std::string& text);

/// The text with the first `from` after `after` replaced; fails the test if there is none.
std::string replaced(const std::string& text, const std::string& from, const std::string& to,
                     const std::string& after = "");

} // namespace standin
