#pragma once

#include <string>
#include <vector>

#include "engine/core/String.h"
#include "standin/StandIn.h"

namespace standin {

/// What the program is to do.
struct CommandLine {
    zel::String dir;
    bool watch = false; // fly each new mission until interrupted
    bool once = false;  // until the first
    bool fly = false;   // the mission that lies there
    bool quiet = false; // say nothing but errors
    bool help = false;
    zel::String mission; // of --fly; empty: the one that was changed last
    FlightOptions flight;
};

/// The words behind the program's name. On error: false with one line.
bool parseCommandLine(const std::vector<std::string>& words, CommandLine& line, std::string& error);

/// How to call the program, a few lines.
const char* usage();

} // namespace standin
