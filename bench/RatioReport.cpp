#include "bench/RatioReport.h"

#include <algorithm>
#include <cstdio>

namespace {

std::map<std::string, double>& limits() {
    static std::map<std::string, double> values;
    return values;
}

double median(std::vector<double> values) {
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

void RatioReport::setLimit(const std::string& name, double ratio) { limits()[name] = ratio; }

bool RatioReport::ReportContext(const Context& /*context*/) { return true; }

void RatioReport::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.error_occurred)
            std::printf("%s: %s\n", run.run_name.function_name.c_str(), run.error_message.c_str());
        if (run.error_occurred || run.run_type != Run::RT_Iteration)
            continue;
        const std::string name = run.run_name.function_name;
        const size_t slash = name.find('/');
        Pair& pair = pairs[name.substr(0, slash)];
        const double seconds = run.cpu_accumulated_time / static_cast<double>(run.iterations);
        (name.substr(slash + 1) == "bare" ? pair.bare : pair.ours).push_back(seconds);
    }
}

void RatioReport::Finalize() {
    std::printf("%-34s %10s %10s %7s %7s\n", "", "ours", "bare", "ratio", "at most");
    for (const auto& [name, pair] : pairs) {
        const double ours = median(pair.ours);
        const double bare = median(pair.bare);
        if (bare <= 0)
            continue;
        std::printf("%-34s %7.2f ms %7.2f ms %7.2f %7.2f\n", name.c_str(), ours * 1e3, bare * 1e3,
                    ours / bare, limits()[name]);
    }
}
