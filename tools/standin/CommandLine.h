#pragma once

#include <string>
#include <vector>

#include "standin/StandIn.h"
#include "tools/common/CallReading.h"

namespace standin {

/// What one call of the program asks for.
struct StandInCall {
    std::string dir;
    bool watch = false;  // fly each new mission until interrupted
    bool once = false;   // with watch: stop after the first flight
    bool fly = false;    // fly the newest mission
    bool quiet = false;  // print errors only
    std::string mission; // for fly; empty: the one that was changed last
    FlightOptions flight;
};

/// Reads the words after the program's name. The call is valid if the reading is Run.
tools::CallReading readStandInCall(const std::vector<std::string>& words, StandInCall& call);

} // namespace standin
