#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/core/String.h"

class Session;

/// What one call of the program asks for.
struct CareerCall {
    zel::String rofDirectory;
    zel::String userDirectory;
    zel::String dataDirectory;    // the folder that holds Data, or Data itself
    std::optional<uint32_t> seed; // pins every generator and the clock
    int32_t waitSeconds = 0;      // how long report waits for a log
    bool quiet = false;
    bool verbose = false;
    bool help = false;
    std::vector<std::function<bool(Session&)>> commands; // in their order
};

/// Reads the arguments behind the program's name. False, with what is wrong, for a wrong call.
bool readCareerCall(const std::vector<std::string_view>& words, CareerCall& call,
                    std::string& error);
const char* careerUsage();
