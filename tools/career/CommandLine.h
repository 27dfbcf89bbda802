#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "engine/core/String.h"
#include "tools/common/CallReading.h"

class Session;

/// What one call of the program asks for.
struct CareerCall {
    std::string rofDirectory;
    std::string userDirectory;
    std::string dataDirectory;           // the folder that holds Data, or Data itself
    std::string language;                // code of a language table; empty for English
    std::optional<uint32_t> seed;        // pins every generator and the clock
    std::optional<zel::String> name;     // of a new career's pilot, in Windows-1252
    std::optional<zel::String> squadron; // his squadron's key
    int32_t waitSeconds = 0;             // how long report waits for a log
    bool keepsRecord = true;             // of the war
    bool fixes = false;                  // what doctor finds
    bool quiet = false;
    bool verbose = false;
    std::vector<std::function<bool(Session&)>> commands; // in their order
};

/// Reads the words after the program's name. The call is valid if the reading is Run.
tools::CallReading readCareerCall(const std::vector<std::string>& words, CareerCall& call);
