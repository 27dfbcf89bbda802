#include "bench/RatioReport.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace {

using Limits = std::map<std::string, double>;

Limits& ratioLimits() {
    static Limits values;
    return values;
}

Limits& timeLimits() {
    static Limits values;
    return values;
}

constexpr int MoreRounds = 2; // further rounds of turns, for a line above its limit

double least(const std::vector<double>& values) {
    return values.empty() ? 0 : *std::min_element(values.begin(), values.end());
}

/// Ten columns, "12.34 ms".
std::string timeText(double seconds) {
    char text[32];
    const bool isShort = seconds < 1e-3;
    std::snprintf(text, sizeof text, "%7.2f %s", seconds * (isShort ? 1e6 : 1e3),
                  isShort ? "us" : "ms");
    return text;
}

} // namespace

bool RatioReport::takeArguments(int argc, char** argv) {
    std::vector<char*> others;
    for (int index = 0; index < argc; ++index) {
        if (std::string_view(argv[index]) == "--enforce")
            enforces = true;
        else
            others.push_back(argv[index]);
    }
    int count = static_cast<int>(others.size());
    others.push_back(nullptr);
    benchmark::Initialize(&count, others.data());
    return !benchmark::ReportUnrecognizedArguments(count, others.data());
}

int RatioReport::run() {
    benchmark::RunSpecifiedBenchmarks(this);
    for (int i = 0; enforces && i < MoreRounds && !namesAboveLimits().empty(); ++i)
        benchmark::RunSpecifiedBenchmarks(this, namesAboveLimits());
    print();
    return hasErrors || (enforces && hasBrokenLimits) ? 1 : 0;
}

void RatioReport::setLimit(const std::string& name, double ratio) { ratioLimits()[name] = ratio; }

void RatioReport::setTimeLimit(const std::string& name, double seconds) {
    timeLimits()[name] = seconds;
}

void RatioReport::addFigure(const std::string& name, double value, const char* unit, double limit) {
    figures.push_back({name, value, unit, limit});
}

bool RatioReport::ReportContext(const Context& /*context*/) { return true; }

void RatioReport::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        const std::string name = run.run_name.function_name;
        if (run.error_occurred) {
            hasErrors = true;
            std::printf("%s: %s\n", name.c_str(), run.error_message.c_str());
        }
        if (run.error_occurred || run.run_type != Run::RT_Iteration)
            continue;
        const size_t slash = name.find('/');
        Pair& pair = pairs[name.substr(0, slash)];
        const double seconds = run.cpu_accumulated_time / static_cast<double>(run.iterations);
        (name.substr(slash + 1) == "bare" ? pair.bare : pair.ours).push_back(seconds);
    }
}

const char* RatioReport::judge(double value, double limit) {
    if (value <= limit)
        return "";
    hasBrokenLimits = true;
    return "  BROKEN";
}

/// The names as a pattern for the library, "^(A|B)/"; empty for none.
std::string RatioReport::namesAboveLimits() const {
    std::string names;
    for (const auto& [name, pair] : pairs) {
        const double ours = least(pair.ours);
        const auto time = timeLimits().find(name);
        if ((!pair.bare.empty() && ours > ratioLimits()[name] * least(pair.bare)) ||
            (time != timeLimits().end() && ours > time->second))
            names += (names.empty() ? "^(" : "|") + name;
    }
    return names.empty() ? names : names + ")/";
}

void RatioReport::print() {
    std::printf("%-34s %10s %10s %7s %10s\n", "", "ours", "bare", "ratio", "at most");
    for (const auto& [name, pair] : pairs) {
        const double ours = least(pair.ours);
        const double bare = least(pair.bare);
        if (bare > 0 && ours > 0) {
            const double most = ratioLimits()[name];
            std::printf("%-34s %s %s %7.2f %10.2f%s\n", name.c_str(), timeText(ours).c_str(),
                        timeText(bare).c_str(), ours / bare, most, judge(ours / bare, most));
        }
        if (const auto limit = timeLimits().find(name); ours > 0 && limit != timeLimits().end())
            std::printf("%-34s %s %29s%s\n", name.c_str(), timeText(ours).c_str(),
                        timeText(limit->second).c_str(), judge(ours, limit->second));
    }
    for (const Figure& figure : figures)
        std::printf("%-34s %7.1f %s %26.0f %s%s\n", figure.name.c_str(), figure.value, figure.unit,
                    figure.limit, figure.unit, judge(figure.value, figure.limit));
}
