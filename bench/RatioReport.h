#pragma once

#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

/// Collects pairs of benchmarks, "NAME/ours" and "NAME/bare", and prints their ratio: both ran
/// within one process, turn by turn, so a noisy machine slows both.
class RatioReport : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

    /// The ratio that a pair is held to.
    static void setLimit(const std::string& name, double ratio);

private:
    struct Pair {
        std::vector<double> ours; // processor seconds for an iteration, one for each repetition
        std::vector<double> bare;
    };
    std::map<std::string, Pair> pairs;
};
