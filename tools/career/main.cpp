#include <cstdio>

#include "app/career/Aircraft.h"
#include "app/mission/Configuration.h"
#include "app/mission/Settings.h"
#include "engine/core/Clock.h"
#include "engine/core/Language.h"
#include "engine/core/Log.h"
#include "engine/core/Random.h"
#include "engine/core/System.h"
#include "engine/core/SystemFiles.h"
#include "engine/core/SystemPlaces.h"
#include "engine/core/UserDirectory.h"
#include "tools/career/CommandLine.h"
#include "tools/career/Session.h"
#include "tools/common/Print.h"

namespace {

int failed(const zel::String& why) {
    std::fflush(stdout);
    tools::print(stderr, "wingtally-career: " + zel::system::printedName(why) + "\n");
    return 1;
}

std::vector<zel::String>& heldLines() {
    static std::vector<zel::String> lines;
    return lines;
}

/// Holds warnings back until a command succeeds: one that fails reports why in its own line.
void showLogs(bool verbose) {
    zel::setConsoleShown(verbose);
    if (verbose)
        zel::setLogLevel(7);
    else
        zel::setLogSink([](const zel::String& line) { heldLines().push_back(line); });
}

void releaseLines() {
    for (const zel::String& line : heldLines())
        tools::print(stderr, line + "\n");
    heldLines().clear();
}

/// Makes the results independent of the time at which the program runs.
void pin(uint32_t seed) {
    zel::Random::setStaticNumber(seed);
    zel::setTickSource([] { return uint32_t(0); });
    zel::setWallTimeSource([] { return zel::WallTime{2009, 5, 7, 12, 0, 0}; });
}

/// Changes to the folder that holds Data; false if there is none.
bool enterRunDirectory(const zel::String& chosen) {
    zel::String folder = chosen;
    if (folder.empty())
        folder = zel::findRunDirectory();
    else if (!zel::system::isDirectory(folder + "\\Data"))
        folder = folder + "\\.."; // Data itself is named
    return !folder.empty() && zel::system::isDirectory(folder + "\\Data\\Historical") &&
           zel::system::changeDirectory(folder);
}

} // namespace

int main(int argc, char** argv) {
    zel::system::beginProgram();
    zel::setApplicationTitle("Wingtally");
    CareerCall call;
    const tools::CallReading reading = readCareerCall(tools::argumentsOf(argc, argv), call);
    if (const std::optional<int> status = tools::answer(reading))
        return *status;
    showLogs(call.verbose);
    if (call.seed)
        pin(*call.seed);

    noteStartFolder();
    const zel::String rofDirectory =
        call.rofDirectory.empty() ? zel::String() : zel::system::absolutePath(call.rofDirectory);
    if (!call.userDirectory.empty())
        zel::setUserDirectory(zel::system::absolutePath(call.userDirectory));
    else if (const zel::String problem = zel::system::applicationDataProblem(); !problem.empty())
        return failed(problem + "; --user names a folder");
    if (!enterRunDirectory(call.dataDirectory))
        return failed(call.dataDirectory.empty()
                          ? zel::String("The folder Data was not found beside the program")
                          : "There is no folder Data in " + call.dataDirectory);
    if (!call.language.empty() && !zel::Language::load(call.language))
        return failed("There is no language " + call.language + ": no file Language/" +
                      call.language + ".txt beside Data");
    loadSettings();
    if (!rofDirectory.empty())
        Configuration::set(SimulatorKey, rofDirectory);

    initPlaneNames();
    Session session(call.quiet, call.waitSeconds, call.keepsRecord);
    if (!session.tidy())
        releaseLines(); // it may be why a command finds no career
    for (const auto& command : call.commands) {
        if (!command(session))
            return failed(session.problem());
        releaseLines();
    }
    return tools::exitStatus(0);
}
