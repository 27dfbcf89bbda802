#pragma once

#include "app/mission/MissionGenerator.h"
#include "tests/support/HandMade.h"
#include "tests/support/Texts.h"

// A flight of four, made up: the player is Erich Sommer with one wing man, against two Camels. He
// shoots down Reed, who lives; Brandt is shot down by Hall and dies of the fall; a machine gun on
// the ground takes part; Hall never meets the player. Its log is in the folder flight, a file for
// each piece.

inline const std::vector<std::string> FlightPieces = [] {
    std::vector<std::string> pieces;
    for (const char* piece : {"/0.txt", "/1.txt", "/2.txt", "/3.txt"})
        pieces.push_back(fileText(std::string(FLIGHT_FOLDER) + piece));
    return pieces;
}();

/// The plan of that flight: its pilots are 10 to 13.
inline std::vector<PlannedPlane> flightPlan() {
    return {plannedPlane(10, "Erich Sommer", Germany, {8, 7, 30}),
            plannedPlane(11, "Kurt Brandt", Germany, {2, 0, 3}),
            plannedPlane(12, "Albert Reed", England, {1, 1, 4}),
            plannedPlane(13, "Ernest M. Hall", England, {9, 11, 50})};
}
