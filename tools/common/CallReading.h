#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tools {

/// What a program does after reading its arguments.
enum class CallKind { Run, Help, Wrong };

/// The result of reading a program's arguments.
struct CallReading {
    CallKind kind = CallKind::Run;
    std::string text; // to print, except for Run: the help, or what is wrong with the arguments,
                      // and the usage
};

/// The words after the program's name.
std::vector<std::string> argumentsOf(int count, char** words);

/// Prints the text of a reading and returns the program's exit status: 0 after the help, which goes
/// to standard output, and 2 after invalid arguments, whose text goes to standard error. Empty for
/// Run.
std::optional<int> answer(const CallReading& reading);

/// The program's exit status: the given one, but 1 instead of 0 if output was lost. That also gets
/// a line on standard error.
int exitStatus(int status);

} // namespace tools
