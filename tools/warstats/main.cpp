#include <cstdio>
#include <string>
#include <vector>

#include "app/career/Aircraft.h"
#include "app/career/Database.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/SystemFiles.h"
#include "tools/common/CommandLine.h"
#include "tools/common/Print.h"
#include "tools/warstats/Report.h"

namespace {

constexpr const char* Program = "wingtally-warstats";
constexpr const char* Description =
    R"(Fights wars from December 1915 to the Armistice, without flights of the player, and
prints how they compare with the real one. TABLES is the folder of the history tables,
data/history in the source tree. The player's service changes from war to war.)";
constexpr const char* Ending =
    "Exit status: 0 all targets are met, 1 one is missed, 2 invalid arguments or no data.";
constexpr int32_t MostWars = 10000;
constexpr int32_t MostStarts = 100000;

struct StatsOptions {
    int32_t wars = 20;
    int32_t starts = 400;
    uint32_t seed = 1;
    std::string data;
    std::string tables;
};

tools::CallReading readCall(const std::vector<std::string>& words, StatsOptions& call) {
    tools::CommandLine line(Program, "[OPTION]... TABLES", Description, Ending);
    line.addOption("--wars", call.wars, "how many wars, 20 otherwise")
        .valueName("N")
        .wholeNumber(1, MostWars);
    line.addOption("--starts", call.starts, "how many German careers are begun, 400 otherwise")
        .valueName("N")
        .wholeNumber(1, MostStarts);
    line.addOption("--seed", call.seed, "seed of the first war, 1 otherwise; the next has the next")
        .valueName("SEED")
        .wholeNumber(1, 1000000000);
    line.addOption("--data", call.data, "the folder that holds Data; otherwise the game's own")
        .valueName("DIR")
        .nameOfFile();
    line.addOption("TABLES", call.tables).nameOfFile().required();
    return line.read(words);
}

int run(const StatsOptions& call) {
    zel::setConsoleShown(false);
    warstats::RealWarTables real;
    const tools::Findings findings = warstats::readRealWar(call.tables, real);
    if (tools::printFindings(findings, stderr) != 0)
        return 2;
    const zel::String folder = call.data.empty() ? zel::findRunDirectory() : zel::String(call.data);
    if (folder.empty() || !zel::system::isDirectory(folder + "\\Data\\Historical") ||
        !zel::system::changeDirectory(folder)) {
        tools::print(stderr, zel::String(Program) + ": no Data in " +
                                 (folder.empty() ? "the places where the game looks" : folder) +
                                 "\n");
        return 2;
    }
    initPlaneNames();
    constexpr int32_t Services[] = {ServiceFrench, ServiceEnglish, ServiceGerman};
    std::vector<warstats::WarFigures> wars;
    wars.reserve(static_cast<size_t>(call.wars));
    for (int32_t i = 0; i < call.wars; ++i)
        wars.push_back(
            warstats::fightWar(call.seed + static_cast<uint32_t>(i), Services[i % 3], real));
    const warstats::Report report(wars, warstats::startsInJasta(call.seed, call.starts), real);
    tools::print(stdout, report.text());
    return report.meetsTargets() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    StatsOptions call;
    const tools::CallReading reading = readCall(tools::argumentsOf(argc, argv), call);
    const std::optional<int> status = tools::answer(reading);
    return status ? *status : tools::exitStatus(run(call));
}
