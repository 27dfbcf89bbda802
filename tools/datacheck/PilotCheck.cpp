#include "tools/datacheck/PilotCheck.h"

#include <algorithm>
#include <cstdlib>

#include "tools/datacheck/SquadronCheck.h"

namespace datacheck {

namespace {

constexpr size_t LongestKey = 11;
constexpr int32_t HighestLevel = 2;
constexpr int32_t HighestPotential = 255;
// The simulator refuses a whole mission for one of these in a name.
constexpr std::string_view NotInNames = ";={}\"";

void checkName(const Record& pilot, Faults& faults) {
    zel::String reason = whyNoName(pilot.name);
    if (pilot.name.length() > LongestPilotName)
        reason = zel::String("the name has ") + pilot.name.length() + " characters, at most " +
                 LongestPilotName + " fit into the simulator: shorten a first name to its initial";
    if (reason.empty())
        return;
    for (const zel::String& file : pilot.files)
        faults.push_back({file, 1, reason});
}

/// The squadron whose number is nearest, so that a slip of the pen is seen at once.
zel::String nearestSquadron(const zel::String& unit, const std::vector<Record>& squadrons) {
    const auto away = [&](const Record& squadron) {
        return std::abs(int64_t(squadron.name.toInt()) - unit.toInt());
    };
    const auto nearest =
        std::min_element(squadrons.begin(), squadrons.end(),
                         [&](const Record& a, const Record& b) { return away(a) < away(b); });
    return nearest == squadrons.end() ? zel::String() : "; the nearest is " + nearest->name;
}

void checkUnit(const Record& pilot, const Entry& entry, const std::vector<Record>& squadrons,
               Faults& faults) {
    const auto fault = [&](const zel::String& what) {
        faults.push_back({pilot.fileOf(entry), entry.line, what});
    };
    const zel::String unit(entry.unit);
    if (entry.unit.size() > LongestKey)
        fault("unit=" + unit + " has more than 11 characters and matches no squadron");
    else if (std::none_of(squadrons.begin(), squadrons.end(),
                          [&](const Record& squadron) { return squadron.name == unit; }))
        fault("there is no squadron file for unit=" + unit + nearestSquadron(unit, squadrons));
    if (entry.date.empty())
        fault("unit= without date= never applies: write the day of the posting");
}

void checkNumber(const Record& pilot, const Entry& entry, const char* key, const std::string& value,
                 int32_t highest, Faults& faults) {
    if (value.empty())
        return;
    const bool fits = isDigits(value) && value.size() <= 3 && zel::toInt(value) <= highest;
    if (!fits)
        faults.push_back(
            {pilot.fileOf(entry), entry.line,
             zel::String(key) + "=" + value + " is out of range: write 0 to " + highest});
    else if (entry.unit.empty())
        faults.push_back({pilot.fileOf(entry), entry.line,
                          zel::String(key) + "= is read beside unit= only: move it to that line"});
}

} // namespace

zel::String whyNoName(std::string_view name) {
    if (!isPlain(name))
        return "the name holds a character outside ASCII: write ae for an umlaut, e for an accent";
    if (name.find_first_of(NotInNames) != name.npos)
        return "the name holds one of ; = { } \" which the simulator can't read: leave it out";
    if (name.front() == ' ' || name.back() == ' ' || name.find("  ") != name.npos)
        return "the name holds a blank too many: single blanks between its parts alone";
    return {};
}

void checkPilot(const Record& pilot, const std::vector<Record>& squadrons, Faults& faults) {
    checkName(pilot, faults);
    for (const Entry& entry : pilot.entries) {
        if (!entry.unit.empty())
            checkUnit(pilot, entry, squadrons, faults);
        checkNumber(pilot, entry, "acelevel", entry.aceLevel, HighestLevel, faults);
        checkNumber(pilot, entry, "acepotential", entry.acePotential, HighestPotential, faults);
        checkPlane(pilot, entry, faults);
        if (entry.aircraft.empty() != entry.skin.empty())
            faults.push_back({pilot.fileOf(entry), entry.line,
                              "a personal paint takes both aircraft= and skin="});
    }
    const bool joins = std::any_of(pilot.entries.begin(), pilot.entries.end(),
                                   [](const Entry& entry) { return !entry.unit.empty(); });
    if (!joins && !pilot.entries.empty())
        faults.push_back(
            {pilot.files[0], 1, "no line has unit=, so the pilot never joins: add a posting"});
}

} // namespace datacheck
