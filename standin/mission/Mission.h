#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "standin/Vector.h"

namespace standin {

/// A plane of the mission.
struct Plane {
    std::string name;     // as in the mission, of any length
    int32_t index = 0;    // of the object in the mission's text
    int32_t entity = 0;   // index of its entity
    int32_t line = 0;     // of the block
    Vector position;      // the height above the sea
    double heading = 0;   // degrees, 0 to the north
    int32_t aircraft = 0; // see AircraftTypes.h
    /// By the simulator's codes: the plane's country, and the side for which that fights.
    int32_t country = 0;
    int32_t coalition = 0;
    int32_t level = 0; // 1 novice to 4 ace; 0 the human
    /// As in the mission; only the log shows these two.
    int32_t numberInFormation = 0;
    int32_t payload = 0;
    double fuel = 1;    // 0 to 1
    std::string skin;   // as in the mission, with its folder; empty for the type's own
    bool inAir = true;  // otherwise it starts on the ground
    int32_t leader = 0; // index in Mission::planes; a leader has his own
    int32_t area = -1;  // index in Mission::areas of his or his leader's order; -1 for none
};

/// An order to attack, for the planes that it names and those that follow them.
struct AttackArea {
    int32_t index = 0; // of the object in the mission's text
    int32_t line = 0;  // of the block
    Vector position;
    double radius = 0;            // metres
    double seconds = 0;           // the order's life
    double delay = 0;             // seconds from the mission's start until it is given
    std::vector<int32_t> objects; // entities of the planes
};

/// A goal of the mission, whose outcome the log reports. Index and codes are as in the mission.
struct Objective {
    int32_t index = 0;
    Vector position;
    int32_t coalition = 0;
    int32_t taskType = 0; // 0 primary
    int32_t success = 0;  // the log's result of it
    int32_t iconType = 0;
    double delay = 0; // seconds from the mission's start; below 0: never reached
};

/// A country and the coalition that it fights for, by the simulator's codes.
struct Country {
    int32_t code = 0;
    int32_t coalition = 0;
};

/// The content of a mission's text, checked: every index below is valid.
struct Mission {
    int32_t year = 0, month = 0, day = 0;
    int32_t hour = 0, minute = 0, second = 0;
    /// 0, a single-player mission; others are refused.
    int32_t missionType = 0;
    std::vector<Country> countries; // in the order of the text
    std::vector<Plane> planes;      // in the order of the text, two coalitions at least
    int32_t human = -1;             // index in planes
    std::vector<AttackArea> areas;  // one at least
    std::vector<Objective> objectives;

    /// -1 for a country that isn't listed.
    int32_t coalitionOf(int32_t country) const;
};

} // namespace standin
