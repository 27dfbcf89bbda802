#include <algorithm>
#include <map>

#include "app/mission/MissionGenerator.h"
#include "app/report/CombatReport.h"
#include "app/report/FlightAccount.h"
#include "app/report/LogExtent.h"
#include "app/report/ReportText.h"
#include "fuzz/FuzzFile.h"

namespace {

constexpr size_t MostCompared = 64; // records that are compared with each other

struct NamedKey {
    const char* name; // lowered
    LogKey key;
};
constexpr NamedKey Keys[] = {
    {"atype", LogKey::AType}, {"id", LogKey::Id},     {"pid", LogKey::Pid},
    {"name", LogKey::Name},   {"type", LogKey::Type}, {"country", LogKey::Country},
    {"tid", LogKey::Tid},     {"aid", LogKey::Aid},   {"dmg", LogKey::Dmg},
    {"botid", LogKey::BotId},
};

/// The values of a line by the rule as it is written: split at blanks, add each token without a
/// colon to the token before it.
std::map<std::string, std::string_view> valuesOf(std::string_view line) {
    std::map<std::string, std::string_view> values;
    std::string key;
    size_t valueStart = line.npos;
    for (size_t start = 0; start <= line.size();) {
        const size_t end = std::min(line.find(' ', start), line.size());
        const size_t colon = line.substr(0, end).find(':', start);
        if (colon != line.npos) {
            if (valueStart != line.npos)
                values[key] = line.substr(valueStart, start - valueStart);
            key = zel::String(line.substr(start, colon - start)).toLower().view();
            if (const size_t clause = key.find('('); clause != key.npos)
                key.erase(0, key.find(')') + 1); // all of it stays without a ")"
            valueStart = colon + 1;
        }
        start = end + 1;
    }
    if (valueStart != line.npos)
        values[key] = line.substr(valueStart);
    return values;
}

void checkEvent(const LogEvent& event, std::string_view line) {
    const std::string copy(line);
    const LogEvent alone(copy);
    const auto expected = valuesOf(line);
    for (const NamedKey& named : Keys) {
        const auto found = expected.find(named.name);
        const std::string_view value =
            found != expected.end() ? zel::trimmed(found->second, ' ') : std::string_view();
        require(event.value(named.key) == value, "a value is what the rule says");
        require(alone.value(named.key) == value, "with or without text after the line");
        require(event.number(named.key) == zel::toInt(value), "a number is read as elsewhere");
    }
}

void checkLines(const LogText& lines) {
    for (int32_t i = 0; i < lines.lineCount(); ++i) {
        const std::string_view line = lines.line(i);
        require(!line.empty() && line.find_first_of("\r\n") == line.npos, "a line is one line");
        require(lines.textFrom(i).substr(0, line.size()) == line, "the text goes on from it");
        if (line.size() <= LogEvent::MostBytes)
            checkEvent(LogEvent(lines.textFrom(i), line.size()), line);
    }
}

void checkRecords(const CombatReport& report) {
    const std::vector<PilotReport>& pilots = report.pilots;
    const auto count = static_cast<int32_t>(pilots.size());
    const auto isRecord = [count](int32_t index) { return index >= 0 && index < count; };
    for (int32_t i = 0; i < count; ++i) {
        const PilotReport& pilot = pilots[i];
        require(std::all_of(pilot.hitBy.begin(), pilot.hitBy.end(), isRecord) &&
                    std::all_of(pilot.hitTargets.begin(), pilot.hitTargets.end(), isRecord),
                "hits are between records");
        for (const int32_t victim : pilot.kills)
            require(isRecord(victim) && pilots[victim].shotdownBy == i &&
                        pilots[victim].country != pilot.country,
                    "a victory is over an enemy who was shot down by this one");
        require(pilot.shotdownBy < 0 || (isRecord(pilot.shotdownBy) &&
                                         std::count(pilots[pilot.shotdownBy].kills.begin(),
                                                    pilots[pilot.shotdownBy].kills.end(), i) == 1),
                "each plane is credited once");
        require(pilot.shotdownByOwn < 0 || isRecord(pilot.shotdownByOwn), "a friend is a record");
        require(pilot.injuryPercent >= 0 && pilot.injuryPercent <= 100, "wounds are a percentage");
    }
    for (size_t i = 0; i < std::min(pilots.size(), MostCompared); ++i) {
        const int32_t id = pilots[i].planeId;
        const auto found =
            std::find_if(pilots.begin(), pilots.end(), [id](const PilotReport& pilot) {
                return pilot.planeId == id || pilot.bodyId == id;
            });
        const auto first = static_cast<int32_t>(found - pilots.begin());
        require(report.findByObject(id) == (id < 0 ? -1 : first), "an id finds the first record");
    }
}

std::vector<PlannedPlane> makePlan() {
    std::vector<PlannedPlane> plan(3);
    plan[0].name = "Emil Hartung";
    plan[0].nation = 501;
    plan[1].name = "Percival Montgomery Featherstonehaugh";
    plan[1].nation = 102;
    plan[1].shotdowns = 12;
    plan[2].name = plan[1].name;
    plan[2].nation = 102;
    return plan;
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const FuzzFolder folder; // for its silence
    static const std::vector<PlannedPlane> plan = makePlan();
    const std::string_view text = asText(data, size);
    CombatReport report;
    report.lines.add(text.substr(0, size / 2)); // as two pieces
    report.lines.add(text.substr(size / 2));
    checkLines(report.lines);
    const bool isDone = report.analyse();
    require(!isDone, "without a plan nothing is done");
    checkRecords(report);
    report.mapPilots(plan);
    MissionGenerator generator;
    const FlownMission flown = accountOf(report, generator, "log");
    require(flown.fates.size() == report.pilots.size(), "each record has a fate");
    combatReportColumns(report.pilots, flown.events);
    const size_t count = report.pilots.size();
    static_cast<void>(report.analyse());
    require(report.pilots.size() == count, "a second reading gives the same");
    require(loggedMission(report.lines).find('\n') < 0, "a mission's name is part of a line");
    return 0;
}
