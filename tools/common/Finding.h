#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

/// What the programs of this folder and the stand-in simulator share: findings and the command
/// line. It uses only the standard library and CLI11, because a cross build compiles the program
/// that makes the data files separately, for the build machine.
namespace tools {

/// Something that a person can fix, and where. docs/errors.md says when to report one.
struct Finding {
    Finding() = default;
    Finding(std::string_view file, int32_t line, std::string_view message,
            std::string_view suggestion = {})
        : file(file), line(line), message(message), suggestion(suggestion) {}

    std::string file;       // as the user names it; empty if no file is at fault
    int32_t line = 0;       // as an editor counts, from 1; 0 for the file as a whole
    std::string message;    // what is wrong, without a full stop
    std::string suggestion; // what to do about it; empty if the message says it all
    bool isWarning = false; // everything still works

    /// "file:line: message: suggestion" without the parts that are empty. A warning's message is
    /// preceded by "warning: ".
    std::string text() const;
};
/// Findings of one run.
using Findings = std::vector<Finding>;

/// Sorts by file, then by line. Findings of one line keep their order.
void sortByPlace(Findings& findings);

/// Writes each finding as a line. Returns the exit status for them: 1 if one is more than a
/// warning, otherwise 0.
int printFindings(const Findings& findings, std::FILE* stream);

} // namespace tools
