#pragma once

#include <string>

/// A call of a built program by the system's shell. The constructor waits for its end.
struct ProgramCall {
    /// `arguments` as the shell reads them; `from` is the folder in which it starts, `wrapper` a
    /// program with arguments that starts it.
    ProgramCall(const std::string& program, const std::string& arguments,
                const std::string& from = ".", const std::string& wrapper = "");

    int status; // -1 if it didn't end by itself
    std::string output;
    std::string errors;
};
