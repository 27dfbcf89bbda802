#include "tools/standin/CommandLine.h"

#include "tools/common/CommandLine.h"

namespace standin {

namespace {

constexpr const char* Usage = "DIR [--watch [--once] | --fly [--mission NAME]] [OPTION]...";
constexpr const char* Description =
    "Takes the place of the simulator: makes DIR a simulator folder, flies the missions in its\n"
    "data/Missions and leaves their logs in data.";
constexpr const char* Ending = "Exit status: 0 all went well, also after Ctrl+C; 1 something could "
                               "not be done; 2 invalid arguments.";

constexpr double PieceSeconds = 30; // of flight, in one piece of a log
constexpr double MostSeconds = 100000;
constexpr double LowestSpeed = 0.001;
constexpr double HighestSpeed = 100000;

/// The options that only a flight uses.
struct FlightParts {
    std::vector<tools::Option> options;
    bool isSlow = false;
    double speed = 1;
};

void addFlightOptions(tools::CommandLine& line, FlightOptions& flight, FlightParts& parts) {
    const auto add = [&](tools::Option option) {
        parts.options.push_back(option);
        return option;
    };
    add(line.addOption("--seed", flight.seed,
                       "pin what is left to chance; further flights count on from N"))
        .valueName("N")
        .wholeNumber(1, UINT32_MAX);
    add(line.addOption("--delay", flight.delay, "wait S seconds before a flight"))
        .valueName("S")
        .decimalNumber(0, MostSeconds);
    const tools::Option slow = add(line.addFlag(
        "--slow", parts.isSlow, "write the log piece by piece, 30 seconds of flight each"));
    add(line.addOption("--speed", parts.speed, "with --slow: X times as fast"))
        .valueName("X")
        .decimalNumber(LowestSpeed, HighestSpeed)
        .needs(slow);
    add(line.addFlag("--break-off", flight.breakOff,
                     "the player leaves the flight before its end"));
    const tools::Option kill =
        add(line.addFlag("--kill-player", flight.killPlayer, "the player dies"));
    add(line.addFlag("--wound-player", flight.woundPlayer, "the player is wounded and lives"))
        .excludes(kill);
    add(line.addFlag("--truncate", flight.truncateLastPiece,
                     "the last piece of the log breaks off inside a line"));
}

} // namespace

tools::CallReading readStandInCall(const std::vector<std::string>& words, StandInCall& call) {
    tools::CommandLine line("wingtally-standin", Usage, Description, Ending);
    FlightParts parts;
    line.addOption("DIR", call.dir).required().nameOfFile();
    const tools::Option watch =
        line.addFlag("--watch", call.watch, "fly each new mission until Ctrl+C");
    line.addFlag("--once", call.once, "with --watch: end after the first flight").needs(watch);
    const tools::Option fly =
        line.addFlag("--fly", call.fly, "fly the newest mission, once").excludes(watch);
    parts.options.push_back(
        line.addOption("--mission", call.mission, "with --fly: fly that mission")
            .valueName("NAME")
            .nameOfFile()
            .needs(fly));
    addFlightOptions(line, call.flight, parts);
    line.addFlag("--quiet", call.quiet, "print errors only");

    tools::CallReading reading = line.read(words);
    if (reading.kind != tools::CallKind::Run)
        return reading;
    for (const tools::Option& option : parts.options)
        if (option.isGiven() && !call.watch && !call.fly)
            return line.wrong(option.name() + " requires --fly or --watch");
    if (parts.isSlow)
        call.flight.piecePause = PieceSeconds / parts.speed;
    return reading;
}

} // namespace standin
