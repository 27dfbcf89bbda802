#include "tools/datacheck/PilotCheck.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "app/career/DataFolders.h"
#include "tools/common/PilotNames.h"
#include "tools/datacheck/NameCheck.h"
#include "tools/datacheck/SquadronCheck.h"

namespace datacheck {

namespace {

constexpr int32_t HighestLevel = 2;
constexpr int32_t HighestPotential = 255;

void checkPilotName(const HistoryRecord& pilot, Findings& findings) {
    for (const zel::String& file : pilot.files) {
        tools::Finding finding = checkName(pilot.name, file, 0);
        if (pilot.name.view().size() > tools::LongestAceName)
            finding = {file, 0,
                       zel::String("the name has ") + pilot.name.length() +
                           " characters; the simulator keeps " +
                           static_cast<int32_t>(tools::LongestAceName),
                       "shorten a first name to its initial"};
        if (!finding.message.empty())
            findings.push_back(std::move(finding));
    }
}

/// The squadron with the nearest number, to point out a typo.
zel::String nearestSquadron(const zel::String& unit, const std::vector<HistoryRecord>& squadrons) {
    const auto away = [&](const HistoryRecord& squadron) {
        return std::abs(int64_t{squadron.name.toInt()} - unit.toInt());
    };
    const auto nearest = std::min_element(
        squadrons.begin(), squadrons.end(),
        [&](const HistoryRecord& a, const HistoryRecord& b) { return away(a) < away(b); });
    return nearest == squadrons.end() ? zel::String() : "the nearest is " + nearest->name;
}

void checkUnit(const HistoryRecord& pilot, const HistoryLine& line,
               const std::vector<HistoryRecord>& squadrons, Findings& findings) {
    const auto report = [&](const zel::String& message, const zel::String& suggestion) {
        findings.emplace_back(pilot.fileOf(line), line.number, message, suggestion);
    };
    const zel::String unit(line.unit);
    if (line.unit.size() > LongestSquadronKey)
        report("unit=" + unit + " has more than " + std::to_string(LongestSquadronKey) +
                   " characters and matches no squadron",
               {});
    else if (std::none_of(squadrons.begin(), squadrons.end(),
                          [&](const HistoryRecord& squadron) { return squadron.name == unit; }))
        report("there is no squadron file for unit=" + unit, nearestSquadron(unit, squadrons));
    if (line.date.empty())
        report("unit= without date= never applies", "write the day of the posting");
}

void checkNumber(const HistoryRecord& pilot, const HistoryLine& line, const char* key,
                 const std::string& value, int32_t highest, Findings& findings) {
    if (value.empty())
        return;
    const bool fits = isDigits(value) && value.size() <= 3 && zel::toInt(value) <= highest;
    if (!fits)
        findings.emplace_back(pilot.fileOf(line), line.number,
                              zel::String(key) + "=" + value + " is out of range",
                              zel::String("write 0 to ") + highest);
    else if (line.unit.empty())
        findings.emplace_back(
            pilot.fileOf(line), line.number,
            zel::String(key) + "= is only read with unit=", "move it to that line");
}

} // namespace

void checkPilot(const HistoryRecord& pilot, const std::vector<HistoryRecord>& squadrons,
                Findings& findings) {
    checkPilotName(pilot, findings);
    for (const HistoryLine& line : pilot.lines) {
        if (!line.unit.empty())
            checkUnit(pilot, line, squadrons, findings);
        checkNumber(pilot, line, "acelevel", line.aceLevel, HighestLevel, findings);
        checkNumber(pilot, line, "acepotential", line.acePotential, HighestPotential, findings);
        checkAircraft(pilot, line, findings);
        if (line.aircraft.empty() != line.skin.empty())
            findings.emplace_back(pilot.fileOf(line), line.number,
                                  "a personal paint needs both aircraft= and skin=");
    }
    const bool joins = std::any_of(pilot.lines.begin(), pilot.lines.end(),
                                   [](const HistoryLine& line) { return !line.unit.empty(); });
    if (!joins && !pilot.lines.empty())
        findings.emplace_back(pilot.files[0], 0, "no line has unit=, so the pilot never joins",
                              "add a posting");
}

} // namespace datacheck
