// Run in the run folder, where Data is. Prints ratios, not times: see RatioReport.h.

#include "bench/Benches.h"
#include "bench/RatioReport.h"
#include "engine/core/Log.h"

int main(int argc, char** argv) {
    zel::setConsoleShown(false);
    zel::disableLogging();
    RatioReport report;
    if (!report.takeArguments(argc, argv))
        return 1;
    // These come first, so that the memory of the benchmarks isn't counted as the war's. Each takes
    // a war, so a run of selected benchmarks leaves them out.
    if (benchmark::GetBenchmarkFilter().empty()) {
        report.addFigure("Peak memory of a whole war", peakMemoryOfWar(), "MB", 64);
        report.addFigure("Record of a whole war", recordSizeOfWar(), "MB", 25);
    }
    registerCareerBenches();
    registerFileBenches();
    registerRecordBenches();
    return report.run();
}
