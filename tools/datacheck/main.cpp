#include <algorithm>
#include <cstdio>
#include <string>

#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "tools/common/CommandLine.h"
#include "tools/common/Print.h"
#include "tools/datacheck/DataCheck.h"

namespace {

constexpr const char* Program = "wingtally-datacheck";
constexpr const char* Description =
    R"(Checks the squadron, pilot and name files and the mission template in FOLDER, which is
the folder Data or the one that holds it; without FOLDER, the files that the game itself
uses. Prints each finding as file:line: what is wrong: what to write instead.)";
constexpr const char* Ending =
    "Exit status: 0 no findings, 1 findings, 2 invalid arguments or no data.";

struct CheckOptions {
    bool coverage = false;
    bool hints = false;
    std::string folder;
};

tools::CallReading readCall(const std::vector<std::string>& words, CheckOptions& call) {
    tools::CommandLine line(Program, "[--coverage] [--hints] [FOLDER]", Description, Ending);
    line.addFlag("--coverage", call.coverage,
                 "print, for each nation and month, how many of the squadrons have one\n"
                 "and how many have every aircraft that is then in use in the career");
    line.addFlag("--hints", call.hints,
                 "list the hints too: months in which the career uses none of a\n"
                 "squadron's aircraft, so that it isn't met as an enemy");
    line.addOption("FOLDER", call.folder).nameOfFile();
    return line.read(words);
}

/// Prints the faults, and the hints or how many there are.
int printFindings(tools::Findings findings, bool hints) {
    const auto isHint = [](const tools::Finding& finding) { return finding.isWarning; };
    const auto count = std::count_if(findings.begin(), findings.end(), isHint);
    if (!hints)
        findings.erase(std::remove_if(findings.begin(), findings.end(), isHint), findings.end());
    const int status = tools::printFindings(findings, stdout);
    if (count > 0 && !hints)
        tools::print(stdout, "hints, which --hints lists: " + std::to_string(count) + "\n");
    return status;
}

int run(const CheckOptions& call) {
    zel::setConsoleShown(false); // a missing folder is a finding
    const zel::String found = call.folder.empty() ? zel::findRunDirectory() : zel::String();
    const zel::String start =
        found.empty() ? zel::String(call.folder) : zel::system::absolutePath(found);
    const zel::String folder = start.empty() ? start : datacheck::findDataFolder(start);
    if (folder.empty()) {
        tools::print(stderr, zel::String(Program) + ": no data in " +
                                 (start.empty() ? "the places where the game looks" : start) +
                                 "\n");
        return 2;
    }
    if (call.coverage) {
        tools::print(stdout, datacheck::coverageTable(folder));
        return 0;
    }
    return printFindings(datacheck::checkData(folder), call.hints);
}

} // namespace

int main(int argc, char** argv) {
    CheckOptions call;
    const tools::CallReading reading = readCall(tools::argumentsOf(argc, argv), call);
    const std::optional<int> status = tools::answer(reading);
    return status ? *status : tools::exitStatus(run(call));
}
