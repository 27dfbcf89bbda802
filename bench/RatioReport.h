#pragma once

#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

/// Collects pairs of benchmarks, "NAME/ours" and "NAME/bare", and prints their ratio: both ran
/// within one process, turn by turn, so a noisy machine slows both. Other programs can only make a
/// turn slower, so the ratio is that of each side's fastest turn, and with "--enforce" a line above
/// its limit gets more turns before it counts as broken. Where there is nothing to compare with,
/// "NAME/ours" is alone, with a time as its limit. All times are processor time.
class RatioReport : public benchmark::BenchmarkReporter {
public:
    /// Takes the program's arguments. False, and a line on standard error, for an unknown one.
    [[nodiscard]] bool takeArguments(int argc, char** argv);
    /// Runs what was registered and prints the table. Returns the exit code: 0, or 1 if a benchmark
    /// failed or, with the argument "--enforce", if a limit was broken.
    [[nodiscard]] int run();

    /// Sets the limit of a pair's ratio.
    static void setLimit(const std::string& name, double ratio);
    /// Sets the limit of the time of "NAME/ours", in seconds per iteration, alone or in addition to
    /// the ratio.
    static void setTimeLimit(const std::string& name, double seconds);
    /// Adds a line with a figure that was measured elsewhere.
    void addFigure(const std::string& name, double value, const char* unit, double limit);

    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

private:
    struct Pair {
        std::vector<double> ours; // seconds for an iteration, one for each repetition
        std::vector<double> bare;
    };
    struct Figure {
        std::string name;
        double value;
        const char* unit;
        double limit;
    };

    std::string namesAboveLimits() const;
    void print();
    const char* judge(double value, double limit);

    std::map<std::string, Pair> pairs;
    std::vector<Figure> figures;
    bool enforces = false;
    bool hasErrors = false;
    bool hasBrokenLimits = false;
};
