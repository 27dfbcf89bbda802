#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/common/CallReading.h"

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace tools {

/// An option or argument of a command line, which it must not outlive. Each operation narrows what
/// is accepted and gives the same option back.
class Option {
public:
    Option required();
    /// The value's name in the help, such as "DIR".
    Option valueName(const std::string& name);
    /// Only decimal numbers within a range, both bounds included. A whole number has digits and at
    /// most a sign, the other one a decimal point too.
    Option wholeNumber(int64_t least, int64_t most);
    Option decimalNumber(double least, double most);
    /// Anything except an empty text and text that looks like an option.
    Option nameOfFile();
    /// Only together with the other option, or only without it.
    Option needs(Option other);
    Option excludes(Option other);

    /// For a call that was read: whether it has this option, and the option's name.
    bool isGiven() const;
    std::string name() const;

private:
    friend class CommandLine;
    explicit Option(CLI::Option* option) : option(option) {}

    CLI::Option* option;
};

/// A program's options and arguments: CLI11 with the help text, the error lines and the exit
/// statuses that all our programs share. An option that comes twice keeps its last value. CLI11's
/// headers take seconds to compile, so only the source includes them.
class CommandLine {
public:
    /// usage: what follows the program's name in the first line of the help. description: what the
    /// program does, one or more lines. ending: lines after the list of options; may be empty.
    CommandLine(const std::string& program, const std::string& usage,
                const std::string& description, const std::string& ending = "");
    ~CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    /// Adds an option with a value ("--seed"), or an argument ("FOLDER"). The value goes to the
    /// variable when a call is read; the variable stays as it is if the call has no such option.
    Option addOption(const std::string& name, std::string& value, const std::string& help = "");
    Option addOption(const std::string& name, int32_t& value, const std::string& help);
    Option addOption(const std::string& name, double& value, const std::string& help);
    Option addOption(const std::string& name, uint32_t& value, const std::string& help);
    Option addOption(const std::string& name, std::optional<uint32_t>& value,
                     const std::string& help);
    /// Adds an argument that takes all words which no other takes.
    Option addArguments(const std::string& name, std::vector<std::string>& values);
    /// Adds an option without a value.
    Option addFlag(const std::string& name, bool& isGiven, const std::string& help);
    Option addFlag(const std::string& name, const std::string& help);

    /// Reads the words after the program's name into the variables that the options are bound to.
    CallReading read(std::vector<std::string> words);
    /// The result for a call that CLI11 accepts and the program doesn't. message: one line.
    CallReading wrong(const std::string& message) const;

private:
    std::unique_ptr<CLI::App> app;
    std::string usageLine;
};

} // namespace tools
