#pragma once

#include <string>

/// A call of a built program by the system's shell, which has ended when this is there.
struct ProgramCall {
    /// `arguments` as the shell reads them; `from` is the folder in which it starts, `wrapper` a
    /// program with arguments in front of it.
    ProgramCall(const std::string& program, const std::string& arguments,
                const std::string& from = ".", const std::string& wrapper = "");

    int status; // -1 if it didn't end by itself
    std::string output;
    std::string errors;
};
