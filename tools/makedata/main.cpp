#include <cstdio>
#include <optional>
#include <string>

#include "tools/common/CommandLine.h"
#include "tools/makedata/DataFiles.h"

namespace {

int run(const std::string& source, const std::string& output) {
    tables::Tables tables;
    tools::Findings findings = tables::readTables(source, tables);
    if (findings.empty())
        findings = tables::writeFiles(tables::makeFiles(tables), output);
    return tools::printFindings(findings, stderr);
}

} // namespace

int main(int argc, char** argv) {
    std::string source;
    std::string output;
    tools::CommandLine line(
        "wingtally-makedata", "SOURCE_DIR OUTPUT_DIR",
        "Makes the data files of the game, in OUTPUT_DIR/Historical and "
        "OUTPUT_DIR/Names, from the\n"
        "tables in SOURCE_DIR/history and SOURCE_DIR/names.",
        "Exit status: 0 the files are up to date, 1 findings, 2 invalid arguments.");
    line.addOption("SOURCE_DIR", source).required();
    line.addOption("OUTPUT_DIR", output).required();
    const std::optional<int> status = tools::answer(line.read(tools::argumentsOf(argc, argv)));
    return status ? *status : tools::exitStatus(run(source, output));
}
