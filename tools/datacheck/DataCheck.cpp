#include "tools/datacheck/DataCheck.h"

#include <algorithm>
#include <cstdio>

#include "app/career/Nation.h"
#include "engine/core/System.h"
#include "tools/datacheck/Months.h"
#include "tools/datacheck/NameCheck.h"
#include "tools/datacheck/PilotCheck.h"
#include "tools/datacheck/SquadronCheck.h"
#include "tools/datacheck/TemplateCheck.h"

namespace datacheck {

namespace {

struct NationName {
    int32_t code;
    const char* name;
};
constexpr NationName Nations[] = {
    {France, "France"}, {England, "England"}, {Usa, "USA"}, {Germany, "Germany"}};

/// A row of the table; empty if the nation has no squadron in that month.
zel::String coverageRow(const NationName& nation, Month month,
                        const std::vector<HistoryRecord>& squadrons) {
    const std::vector<const char*> planes = planesOf(nation.code, month);
    int32_t active = 0;
    int32_t withOne = 0;
    int32_t withEvery = 0;
    for (const HistoryRecord& squadron : squadrons) {
        const MonthRange months = activeMonths(squadron);
        if (!hasAircraft(squadron) || nationOf(squadron) != nation.code || month < months.first ||
            month > months.last)
            continue;
        const auto has = [&](const char* plane) { return flies(squadron, plane); };
        ++active;
        withOne += std::any_of(planes.begin(), planes.end(), has) ? 1 : 0;
        withEvery += std::all_of(planes.begin(), planes.end(), has) ? 1 : 0;
    }
    if (active == 0)
        return {};
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%-8s %s %9d %4d %% %5d %% ", nation.name,
                  monthText(month).c_str(), active, withOne * 100 / active,
                  withEvery * 100 / active);
    zel::String row(buffer);
    for (const char* plane : planes)
        row = row + " " + plane;
    return row + "\n";
}

} // namespace

zel::String findDataFolder(const zel::String& folder) {
    for (const zel::String& candidate : {folder, folder + "/Data"})
        for (const char* part : {"/Historical", "/Custom", "/Names"})
            if (zel::system::isDirectory(candidate + part))
                return candidate;
    return {};
}

Findings checkData(const zel::String& dataFolder) {
    Findings findings;
    const std::vector<HistoryRecord> squadrons = readHistory(dataFolder, "Squadrons", findings);
    if (squadrons.empty())
        findings.emplace_back(dataFolder + "/Historical/Squadrons", 0, "there are no squadrons",
                              "install the program's data again");
    for (const HistoryRecord& squadron : squadrons)
        checkSquadron(squadron, findings);
    for (const HistoryRecord& pilot : readHistory(dataFolder, "Pilots", findings))
        checkPilot(pilot, squadrons, findings);
    checkNameLists(dataFolder, findings);
    checkTemplate(dataFolder, findings);
    tools::sortByPlace(findings);
    return findings;
}

zel::String coverageTable(const zel::String& dataFolder) {
    Findings ignored;
    const std::vector<HistoryRecord> squadrons = readHistory(dataFolder, "Squadrons", ignored);
    zel::String table = "nation   month   squadrons    one   every  in use\n";
    for (const NationName& nation : Nations)
        for (Month month = FirstMonth; month <= LastMonth; ++month)
            table += coverageRow(nation, month, squadrons);
    return table;
}

} // namespace datacheck
