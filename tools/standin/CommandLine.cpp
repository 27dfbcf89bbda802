#include "tools/standin/CommandLine.h"

#include <charconv>

namespace standin {

namespace {

constexpr double PieceSeconds = 30; // of flight, that one piece of a log tells

bool readSeed(const std::string& text, uint32_t& seed) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seed);
    return error == std::errc() && end == text.data() + text.size() && seed != 0;
}

/// 0 to 100000, without exponents.
bool readNumber(const std::string& text, double& number) {
    const char* last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, number, std::chars_format::fixed);
    return error == std::errc() && end == last && number >= 0 && number <= 100000;
}

struct Switch {
    const char* word;
    bool CommandLine::*value;
};
constexpr Switch Switches[] = {
    {"--watch", &CommandLine::watch}, {"--once", &CommandLine::once}, {"--fly", &CommandLine::fly},
    {"--quiet", &CommandLine::quiet}, {"--help", &CommandLine::help},
};

struct FlightSwitch {
    const char* word;
    bool FlightOptions::*value;
};
constexpr FlightSwitch FlightSwitches[] = {
    {"--break-off", &FlightOptions::breakOff},
    {"--kill-player", &FlightOptions::killPlayer},
    {"--wound-player", &FlightOptions::woundPlayer},
    {"--truncate", &FlightOptions::truncateLastPiece},
};

class Parser {
public:
    Parser(const std::vector<std::string>& words, CommandLine& line, std::string& error)
        : words(words), line(line), error(error) {}

    bool parse();

private:
    bool takeWord(const std::string& word);
    bool takeSwitch(const std::string& word);
    bool takeValue(const std::string& word);
    bool takeDirectory(const std::string& word);
    bool checkWhole();
    bool refuse(const std::string& reason) {
        error = reason;
        return false;
    }

    const std::vector<std::string>& words;
    CommandLine& line;
    std::string& error;
    size_t next = 0;
    bool slow = false;
    bool aboutFlight = false; // an option that only a flight can heed
    double speed = 1;
    bool speedGiven = false;
};

bool Parser::parse() {
    line = CommandLine();
    while (next < words.size())
        if (!takeWord(words[next++]))
            return false;
    if (line.help)
        return true;
    if (slow)
        line.flight.piecePause = PieceSeconds / speed;
    return checkWhole();
}

bool Parser::takeWord(const std::string& word) {
    if (takeSwitch(word))
        return true;
    if (word == "--slow") {
        slow = aboutFlight = true;
        return true;
    }
    for (const char* known : {"--seed", "--delay", "--speed", "--mission"})
        if (word == known)
            return next < words.size() ? takeValue(word) : refuse(word + " needs a value");
    return takeDirectory(word);
}

bool Parser::takeSwitch(const std::string& word) {
    for (const Switch& known : Switches)
        if (word == known.word)
            return line.*known.value = true;
    for (const FlightSwitch& known : FlightSwitches)
        if (word == known.word)
            return aboutFlight = line.flight.*known.value = true;
    return false;
}

bool Parser::takeValue(const std::string& word) {
    const std::string& value = words[next++];
    aboutFlight = true;
    if (word == "--mission") {
        line.mission = value;
        return !value.empty() || refuse("--mission needs a file's name");
    }
    if (word == "--seed")
        return readSeed(value, line.flight.seed) ||
               refuse("--seed needs a number from 1 to 4294967295, not '" + value + "'");
    if (word == "--delay")
        return readNumber(value, line.flight.delay) ||
               refuse("--delay needs a number of seconds, not '" + value + "'");
    speedGiven = true;
    return (readNumber(value, speed) && speed > 0) ||
           refuse("--speed needs a number above 0, not '" + value + "'");
}

bool Parser::takeDirectory(const std::string& word) {
    if (word.empty() || word.front() == '-')
        return refuse("unknown option '" + word + "'");
    if (!line.dir.empty())
        return refuse("two folders, '" + std::string(line.dir.view()) + "' and '" + word + "'");
    line.dir = word;
    return true;
}

bool Parser::checkWhole() {
    if (line.dir.empty())
        return refuse("no folder is given");
    if (line.watch && line.fly)
        return refuse("--watch and --fly exclude each other");
    if (line.once && !line.watch)
        return refuse("--once belongs to --watch");
    if (!line.mission.empty() && !line.fly)
        return refuse("--mission belongs to --fly");
    if (speedGiven && !slow)
        return refuse("--speed belongs to --slow");
    if (line.flight.killPlayer && line.flight.woundPlayer)
        return refuse("--kill-player and --wound-player exclude each other");
    if (aboutFlight && !line.watch && !line.fly)
        return refuse("options of a flight need --fly or --watch");
    return true;
}

} // namespace

bool parseCommandLine(const std::vector<std::string>& words, CommandLine& line,
                      std::string& error) {
    return Parser(words, line, error).parse();
}

const char* usage() {
    return "Usage: wingtally-standin DIR [--watch [--once] | --fly [--mission NAME]] [OPTION...]\n"
           "Stands in for the simulator: makes DIR a simulator folder and flies the missions that\n"
           "lie in its data/Missions, leaving their logs in data.\n"
           "  --watch          fly each new mission until Ctrl+C\n"
           "  --once           with --watch: end after the first flight\n"
           "  --fly            fly the newest mission that lies there, once\n"
           "  --mission NAME   with --fly: that one\n"
           "  --seed N         pin what is left to chance; further flights count on from N\n"
           "  --delay S        wait S seconds before a flight\n"
           "  --slow           write the log piece by piece, 30 seconds of flight each\n"
           "  --speed X        with --slow: X times as fast\n"
           "  --break-off      the player leaves the flight before its end\n"
           "  --kill-player    the player dies\n"
           "  --wound-player   the player is wounded and lives\n"
           "  --truncate       the log's last piece breaks off inside a line\n"
           "  --quiet          say nothing but errors\n";
}

} // namespace standin
