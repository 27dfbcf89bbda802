#pragma once

#include <string>
#include <vector>

#include "tools/warstats/WarRun.h"

namespace warstats {

/// The figures of wars as tables, each with its target, and whether all targets are met.
class Report {
public:
    /// The wars must outlive the report.
    Report(const std::vector<WarFigures>& wars, const Share& jastaStarts,
           const RealWarTables& real);

    /// All tables, lines with their ends. A figure that misses its target is marked with "!".
    std::string text() const { return lines; }
    bool meetsTargets() const { return missed == 0; }

private:
    void addScores();
    void addMen();
    void addDeaths(int32_t year, int32_t until, double most);
    void addMissions(const Share& jastaStarts);
    void addMonths(const RealWarTables& real);
    void addTotals(const RealWarTables& real);
    void addRow(const std::string& figure, const std::string& realValue, double value, double least,
                double most, const std::string& spread = "");
    template <typename Value> double mean(const Value& valueOf) const;
    template <typename Value> std::string spread(const Value& valueOf) const;
    template <typename Value> Share shareOf(const Value& valueOf) const;
    DayCounts meanSum(int32_t from, int32_t until) const;

    const std::vector<WarFigures>& wars;
    std::string lines;
    int32_t missed = 0;
};

} // namespace warstats
