// Run in the run folder, where Data lies. Prints ratios, not times: see RatioReport.h.

#include <cstdio>

#include <benchmark/benchmark.h>

#include "bench/Benches.h"
#include "bench/RatioReport.h"
#include "engine/core/Log.h"

int main(int argc, char** argv) {
    zel::setConsoleShown(false);
    zel::disableLogging();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    const double peak = peakMemoryOfWar();
    registerCareerBenches();
    registerFileBenches();
    RatioReport report;
    benchmark::RunSpecifiedBenchmarks(&report);
    std::printf("%-34s %7.1f MB %28.0f MB\n", "Peak memory of a whole war", peak, 64.0);
    return 0;
}
