#include "tools/standin/CommandLine.h"

#include "tools/common/CommandLine.h"

namespace standin {

namespace {

constexpr const char* Usage = "DIR [--watch [--once] | --fly [--mission NAME]] [OPTION]...";
constexpr const char* Description =
    "Takes the place of the simulator: makes DIR a simulator folder, flies the missions in its\n"
    "data/Missions and leaves their logs in data.";
constexpr const char* Ending = "Exit status: 0 all went well, also after Ctrl+C; 1 something could "
                               "not be done; 2 a wrong call.";

constexpr double PieceSeconds = 30; // of flight, in one piece of a log
constexpr double MostSeconds = 100000;
constexpr double LowestSpeed = 0.001;
constexpr double HighestSpeed = 100000;

/// The options that only a flight uses.
struct FlightParts {
    std::vector<CLI::Option*> options;
    CLI::Option* slow = nullptr;
    double speed = 1;
};

void addFlightOptions(tools::CommandLine& line, FlightOptions& flight, FlightParts& parts) {
    const auto add = [&](CLI::Option* option) {
        parts.options.push_back(option);
        return option;
    };
    add(line.add_option("--seed", flight.seed,
                        "pin what is left to chance; further flights count on from N"))
        ->type_name("N")
        ->transform(tools::wholeNumber(1, UINT32_MAX));
    add(line.add_option("--delay", flight.delay, "wait S seconds before a flight"))
        ->type_name("S")
        ->check(tools::decimalNumber(0, MostSeconds));
    parts.slow =
        add(line.add_flag("--slow", "write the log piece by piece, 30 seconds of flight each"));
    add(line.add_option("--speed", parts.speed, "with --slow: X times as fast"))
        ->type_name("X")
        ->check(tools::decimalNumber(LowestSpeed, HighestSpeed))
        ->needs(parts.slow);
    add(line.add_flag("--break-off", flight.breakOff,
                      "the player leaves the flight before its end"));
    CLI::Option* kill = add(line.add_flag("--kill-player", flight.killPlayer, "the player dies"));
    add(line.add_flag("--wound-player", flight.woundPlayer, "the player is wounded and lives"))
        ->excludes(kill);
    add(line.add_flag("--truncate", flight.truncateLastPiece,
                      "the last piece of the log breaks off inside a line"));
}

} // namespace

tools::CallReading readStandInCall(const std::vector<std::string>& words, StandInCall& call) {
    tools::CommandLine line("wingtally-standin", Usage, Description, Ending);
    FlightParts parts;
    line.add_option("DIR", call.dir)->required()->check(tools::nameOfFile());
    CLI::Option* watch = line.add_flag("--watch", call.watch, "fly each new mission until Ctrl+C");
    line.add_flag("--once", call.once, "with --watch: end after the first flight")->needs(watch);
    CLI::Option* fly =
        line.add_flag("--fly", call.fly, "fly the newest mission, once")->excludes(watch);
    parts.options.push_back(
        line.add_option("--mission", call.mission, "with --fly: fly that mission")
            ->type_name("NAME")
            ->check(tools::nameOfFile())
            ->needs(fly));
    addFlightOptions(line, call.flight, parts);
    line.add_flag("--quiet", call.quiet, "print errors only");

    tools::CallReading reading = line.read(words);
    if (reading.kind != tools::CallKind::Run)
        return reading;
    for (const CLI::Option* option : parts.options)
        if (option->count() > 0 && !call.watch && !call.fly)
            return line.wrong(option->get_name() + " requires --fly or --watch");
    if (parts.slow->count() > 0)
        call.flight.piecePause = PieceSeconds / parts.speed;
    return reading;
}

} // namespace standin
