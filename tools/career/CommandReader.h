#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/core/String.h"

class Session;
class ShelfCommands;
struct CareerCall;

/// A pilot's name as it is typed, in the encoding of the system; names are Windows-1252.
zel::String typedName(const std::string& given);

/// Reads commands with their arguments from the words of a call, and adds them to it. Each step
/// returns the fault, or an empty text.
class CommandReader {
public:
    CommandReader(const std::vector<std::string>& words, CareerCall& call)
        : words(words), call(call) {}

    std::string readAll();
    /// Whether a career is begun by one of the commands.
    bool begins() const { return beginsCareer; }
    /// Whether one of the commands is the doctor.
    bool examines() const { return hasDoctor; }

private:
    /// A command, and what reads the words that follow it.
    struct NamedReader {
        std::string_view name;
        std::string (CommandReader::*read)(std::string_view command);
    };
    /// Null for a word that isn't a command.
    static const NamedReader* find(std::string_view word);
    static bool isCommand(std::string_view word) { return find(word) != nullptr; }

    std::string readStart(std::string_view command);
    std::string readUntil(std::string_view command);
    std::string readAdvance(std::string_view command);
    std::string readInvitation(std::string_view command);
    std::string readVictories(std::string_view command);
    std::string readWhy(std::string_view command);
    std::string readPilot(std::string_view command);
    std::string readFile(std::string_view command);
    std::string readDoctor(std::string_view command);
    std::string readCareer(std::string_view command);
    std::string readPage(std::string_view command);
    // Adds a command that takes no words.
    template <bool (Session::*Run)()> std::string addPlain(std::string_view command);
    template <bool (ShelfCommands::*Run)()> std::string addOnShelf(std::string_view command);
    template <auto LinesOf> std::string addFromBook(std::string_view command);

    bool atEnd() const { return next == words.size(); }
    std::string_view peek() const { return atEnd() ? std::string_view() : words[next]; }
    /// A whole number of the range; false, taking nothing, if none follows.
    bool takeNumber(int32_t least, int32_t most, int32_t& value);
    void add(std::function<bool(Session&)> command);

    const std::vector<std::string>& words;
    CareerCall& call;
    size_t next = 0;
    bool beginsCareer = false;
    bool hasDoctor = false;
};
