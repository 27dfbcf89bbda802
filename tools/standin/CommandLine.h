#pragma once

#include <string>
#include <vector>

#include "standin/StandIn.h"
#include "tools/common/CommandLine.h"

namespace standin {

/// What one call of the program asks for.
struct StandInCall {
    std::string dir;
    bool watch = false;  // fly each new mission until interrupted
    bool once = false;   // until the first one is flown
    bool fly = false;    // fly the newest mission
    bool quiet = false;  // print errors only
    std::string mission; // of fly; empty: the one that was changed last
    FlightOptions flight;
};

/// Reads the words after the program's name. The call is valid if the reading is Run.
tools::CallReading readStandInCall(const std::vector<std::string>& words, StandInCall& call);

} // namespace standin
