#include "app/book/SquadronsToJoin.h"

#include <algorithm>
#include <map>
#include <string>
#include <string_view>

#include "app/book/BookTables.h"
#include "app/book/EnlistmentWording.h"
#include "app/book/LogBookText.h"
#include "app/career/Aircraft.h"
#include "app/career/Database.h"
#include "app/career/NewCareer.h"
#include "app/career/UnitNames.h"
#include "engine/core/Registry.h"

namespace {

/// A month as the texts of its first and last day, "yyyymmdd", which compare like dates.
struct MonthSpan {
    MonthSpan(int32_t year, int32_t month)
        : first(Calendar(year, month, 1).dateText()),
          last(Calendar(year, month, Calendar::daysInMonth(year, month)).dateText()) {}

    zel::String first, last;
};

/// A line of a squadron's or a pilot's file; the fields of missing keys are empty.
struct Entry {
    std::string_view date, until, aircraft, unit;
    int32_t level = 0;

    bool isIn(const MonthSpan& month) const {
        return !date.empty() && date <= month.last.view() &&
               (until.empty() || until >= month.first.view());
    }
};

template <typename Visit>
void forEachEntry(const Database& career, const int32_t (&lines)[LineReferenceCount],
                  const Visit& visit) {
    std::vector<DataToken> tokens;
    for (const int32_t line : lines) {
        if (line < 0)
            continue;
        splitDataLine(zel::arrayText(career.dataLine(line).text), tokens);
        Entry entry;
        for (const DataToken& token : tokens) {
            if (token.is("date"))
                entry.date = token.value;
            else if (token.is("until"))
                entry.until = token.value;
            else if (token.is("aircraft"))
                entry.aircraft = token.value;
            else if (token.is("unit"))
                entry.unit = token.value;
            else if (token.is("acelevel"))
                entry.level = zel::toInt(token.value);
        }
        visit(entry);
    }
}

// The score of a pilot who isn't in the table of aces: the lowest one for his acelevel in the data
// files.
constexpr int32_t VictoriesOfLevel1 = 20;
constexpr int32_t VictoriesOfLevel2 = 10;
constexpr int32_t VictoriesOfOthers = 5;

int32_t victoriesOfLevel(int32_t level) {
    return level == 1 ? VictoriesOfLevel1 : level == 2 ? VictoriesOfLevel2 : VictoriesOfOthers;
}

struct KnownPilot {
    int32_t victories = 0;
    zel::String name;
};

std::map<std::string, KnownPilot> knownPilots(const Database& career, const BookTables& tables,
                                              const MonthSpan& month) {
    std::map<std::string, KnownPilot> known; // by the key of the squadron
    for (const PilotFile& file : career.pilotFiles) {
        const zel::String name(zel::arrayText(file.name));
        const RealAce* ace = tables.ace(name);
        forEachEntry(career, file.lines, [&](const Entry& entry) {
            if (entry.unit.empty() || !entry.isIn(month))
                return;
            const int32_t victories =
                ace != nullptr ? ace->victories : victoriesOfLevel(entry.level);
            KnownPilot& best = known[std::string(entry.unit)];
            if (victories > best.victories)
                best = {victories, name};
        });
    }
    return known;
}

/// What the player would fly with the squadron: a type that his nation flies in the month and that
/// the file names, if possible for that month, and the latest such type. Empty if all that it flies
/// is switched off.
zel::String machineOf(const Database& career, const SquadronFile& file, const MonthSpan& month,
                      const std::vector<const char*>& drawable) {
    zel::String machine;
    std::string_view since;
    bool isOfMonth = false;
    bool isNamed = false;
    forEachEntry(career, file.lines, [&](const Entry& entry) {
        const zel::String type = zel::String(entry.aircraft).toLower();
        if (std::find(drawable.begin(), drawable.end(), type.view()) == drawable.end())
            return;
        isNamed = true;
        const bool isThen = entry.isIn(month);
        const bool isBetter =
            machine.empty() || isThen > isOfMonth || (isThen == isOfMonth && entry.date > since);
        if (!zel::Registry::isOn(type) || !isBetter)
            return;
        machine = type;
        since = entry.date;
        isOfMonth = isThen;
    });
    if (isNamed)
        return machine;
    const auto own = std::find_if(drawable.begin(), drawable.end(),
                                  [](const char* type) { return zel::Registry::isOn(type); });
    return own != drawable.end() ? zel::String(*own) : zel::String();
}

/// A name that would fill the column gives way to the short one.
zel::String nameInColumn(const zel::String& key) {
    const zel::String name = unitName(key.toInt());
    return name.view().size() < SquadronLetters ? name : shortUnitName(key.toInt());
}

/// Cut so that a blank is left before the next one.
zel::String listColumn(const zel::String& text, size_t letters) {
    return column(cutTo(text, letters - 1), letters);
}

} // namespace

std::vector<SquadronToJoin> squadronsToJoin(const Database& career, const BookTables& tables,
                                            int32_t service, int32_t year, int32_t month) {
    const int32_t nation = nationOfService(service);
    const MonthSpan asked(year, month);
    const std::vector<const char*> drawable = planesDrawable(nation, year, month);
    const std::map<std::string, KnownPilot> known = knownPilots(career, tables, asked);
    std::vector<SquadronToJoin> squadrons;
    for (int32_t i = 0; i < career.squadronFileCount(); ++i) {
        const SquadronFile& file = career.squadronFile(i);
        const std::string_view key = zel::arrayText(file.key);
        bool isThere = false;
        forEachEntry(career, file.lines,
                     [&](const Entry& entry) { isThere = isThere || entry.isIn(asked); });
        if (!isThere || nationOfKey(key) != nation || !hasUnitName(unitNumber(career, i)))
            continue;
        SquadronToJoin squadron{i, zel::String(key), machineOf(career, file, asked, drawable), {}};
        if (const auto pilot = known.find(std::string(key)); pilot != known.end())
            squadron.knownPilot = pilot->second.name;
        if (!squadron.machine.empty())
            squadrons.push_back(squadron);
    }
    std::stable_sort(
        squadrons.begin(), squadrons.end(),
        [](const SquadronToJoin& a, const SquadronToJoin& b) { return a.key < b.key; });
    return squadrons;
}

zel::String squadronRow(const SquadronToJoin& squadron, const zel::String& base) {
    zel::String row = listColumn(nameInColumn(squadron.key), SquadronLetters) +
                      listColumn(machineText(squadron.machine, FlownLetters - 1), FlownLetters);
    if (!base.empty())
        row += listColumn(textOf(wording::BaseInList, {base}), BaseLetters);
    return (row + listColumn(initialName(squadron.knownPilot, KnownLetters - 1), KnownLetters))
        .trim(' ');
}

std::vector<zel::String> squadronLines(const std::vector<SquadronToJoin>& squadrons) {
    constexpr size_t KeyLetters = 8;
    std::vector<zel::String> lines;
    if (!squadrons.empty())
        lines.push_back(column(textOf(wording::KeyHead), KeyLetters) +
                        column(textOf(wording::SquadronHead), SquadronLetters) +
                        column(textOf(wording::MachineHead), FlownLetters) +
                        textOf(wording::KnownPilotHead));
    for (const SquadronToJoin& squadron : squadrons)
        lines.push_back(column(squadron.key, KeyLetters) + squadronRow(squadron, {}));
    return lines;
}
