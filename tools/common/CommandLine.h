#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "tools/common/CallReading.h"

namespace tools {

/// A program's options and arguments: CLI11 with the help text, the error lines and the exit
/// statuses that all our programs share. An option that comes twice keeps its last value.
class CommandLine : public CLI::App {
public:
    /// usage: what follows the program's name in the first line of the help. description: what the
    /// program does, one or more lines. ending: lines after the list of options; may be empty.
    CommandLine(const std::string& program, const std::string& usage,
                const std::string& description, const std::string& ending = "");

    /// Reads the words after the program's name into the variables that the options are bound to.
    CallReading read(std::vector<std::string> words);
    /// The result for a call that CLI11 accepts and the program doesn't. message: one line.
    CallReading wrong(const std::string& message) const;

private:
    std::string usageLine;
};

/// Accept decimal numbers within a range, both bounds included; for CLI::Option::transform.
/// A whole number has digits and at most a sign, the other one a decimal point too.
CLI::Validator wholeNumber(int64_t least, int64_t most);
CLI::Validator decimalNumber(double least, double most);
/// Accepts anything except an empty text and text that looks like an option.
CLI::Validator nameOfFile();

} // namespace tools
