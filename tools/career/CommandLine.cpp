#include "tools/career/CommandLine.h"

#include <algorithm>

#include "app/war/Enlistment.h"
#include "tools/career/CareerHelp.h"
#include "tools/career/CareerStart.h"
#include "tools/career/CommandReader.h"
#include "tools/common/CommandLine.h"

namespace {

constexpr int32_t LongestWait = 86400; // seconds

/// The name of a new career's pilot, in the system's encoding. Returns the fault, or an empty text.
std::string takeName(const std::string& given, CareerCall& call) {
    const zel::String name = typedName(given).trim(' ');
    const std::string_view text = name.view();
    // Each character that Windows-1252 lacks is a "?" by now.
    const bool isWhole =
        std::count(text.begin(), text.end(), '?') == std::count(given.begin(), given.end(), '?');
    call.name = name;
    const NameFault fault = isWhole ? checkSpelling(name) : NameFault::Character;
    return std::string(nameProblem({fault, {}}).view());
}

} // namespace

tools::CallReading readCareerCall(const std::vector<std::string>& words, CareerCall& call) {
    tools::CommandLine line("wingtally-career", "[OPTION]... COMMAND...", CareerDescription,
                            CareerEnding);
    const auto addFolder = [&](const char* name, std::string& folder, const char* what) {
        line.addOption(name, folder, what).valueName("DIR").nameOfFile();
    };
    addFolder("--rof", call.rofDirectory, "the simulator's folder");
    addFolder("--user", call.userDirectory, "where the career and the preferences are kept");
    addFolder("--data", call.dataDirectory, "the folder that holds Data");
    line.addOption("--language", call.language, "the language of the results, English without it")
        .valueName("CODE");
    line.addOption("--seed", call.seed, "the same call gives the same career")
        .valueName("N")
        .wholeNumber(0, UINT32_MAX);
    line.addOption("--wait", call.waitSeconds, "report waits up to S seconds for a log")
        .valueName("S")
        .wholeNumber(0, LongestWait);
    std::string givenName;
    std::string givenSquadron;
    const tools::Option name =
        line.addOption("--name", givenName, "of new: the pilot's name").valueName("NAME");
    const tools::Option squadron =
        line.addOption("--squadron", givenSquadron, "of new: his squadron, as squadrons lists it")
            .valueName("KEY");
    const tools::Option noRecord = line.addFlag("--no-record", "keeps no record of the war");
    line.addFlag("--fix", call.fixes,
                 "of doctor: sets the simulator's folder and switches its log on");
    line.addFlag("--quiet", call.quiet, "says nothing unless something fails");
    line.addFlag("--verbose", call.verbose, "shows the debug lines");
    std::vector<std::string> commands;
    line.addArguments("COMMAND", commands);

    tools::CallReading reading = line.read(words);
    if (reading.kind != tools::CallKind::Run)
        return reading;
    call.keepsRecord = !noRecord.isGiven();
    if (squadron.isGiven())
        call.squadron = zel::String(givenSquadron);
    CommandReader reader(commands, call);
    std::string wrong = name.isGiven() ? takeName(givenName, call) : std::string();
    if (wrong.empty())
        wrong = reader.readAll();
    if (wrong.empty() && !reader.begins() && (name.isGiven() || squadron.isGiven()))
        wrong = "--name and --squadron are for new";
    if (wrong.empty() && call.fixes && !reader.examines())
        wrong = "--fix is for doctor";
    return wrong.empty() ? reading : line.wrong(wrong);
}
