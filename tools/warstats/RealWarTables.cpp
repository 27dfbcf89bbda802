#include "tools/warstats/RealWarTables.h"

#include <algorithm>
#include <cstdlib>

#include "tools/makedata/TableText.h"

namespace warstats {

namespace {

constexpr std::string_view AceHeader =
    "name,nation,born,victories,fate,fate_date,acepotential,source";
constexpr std::string_view SquadronHeader = "key,nation,name,aircraft,from,until,skin,source";
constexpr std::string_view VictoryHeader = "name,date,victim_type,source";
constexpr std::string_view TotalHeader = "period_from,period_until,what,side,figure,count,source";
constexpr std::string_view StandIn = "stand-in"; // how the source of such a type begins

int32_t number(const std::string& text) { return std::atoi(text.c_str()); }

} // namespace

bool RealWarTables::flew(const std::string& key, const std::string& aircraft, int32_t month) const {
    const auto squadron = types.find(key);
    return squadron != types.end() &&
           std::any_of(squadron->second.begin(), squadron->second.end(), [&](const RealType& type) {
               return type.aircraft == aircraft && type.from / 100 <= month &&
                      month <= type.until / 100;
           });
}

std::set<std::string> RealWarTables::best(size_t count) const {
    std::vector<std::string> sorted = names;
    std::stable_sort(sorted.begin(), sorted.end(), [&](const std::string& a, const std::string& b) {
        return men.at(a).victories > men.at(b).victories;
    });
    sorted.resize(std::min(count, sorted.size()));
    return {sorted.begin(), sorted.end()};
}

tools::Findings readRealWar(const std::string& folder, RealWarTables& tables) {
    tools::Findings findings;
    for (const auto& [line, f] : ::tables::CsvTable(folder, "aces.csv", AceHeader, findings).rows) {
        tables.men[f[0]] = {f[0], number(f[3]), f[4], number(f[5])};
        tables.names.push_back(f[0]);
    }
    for (const auto& [line, f] :
         ::tables::CsvTable(folder, "squadrons.csv", SquadronHeader, findings).rows)
        if (f[7].compare(0, StandIn.size(), StandIn) != 0)
            tables.types[f[0]].push_back({f[3], number(f[4]), number(f[5])});
    for (const auto& [line, f] :
         ::tables::CsvTable(folder, "victories_by_day.csv", VictoryHeader, findings).rows)
        ++tables.victories[number(f[1]) / 100];
    for (const auto& [line, f] :
         ::tables::CsvTable(folder, "real_totals.csv", TotalHeader, findings).rows)
        tables.totals.push_back(
            {number(f[0]), number(f[1]), f[2], f[3], f[4], static_cast<double>(number(f[5]))});
    return findings;
}

} // namespace warstats
