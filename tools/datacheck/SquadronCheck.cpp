#include "tools/datacheck/SquadronCheck.h"

#include <algorithm>
#include <numeric>

#include "app/career/Aircraft.h"
#include "app/career/Nation.h"
#include "tools/datacheck/Months.h"

namespace datacheck {

namespace {

constexpr int32_t LongestKey = 11;

/// The number of characters to add, drop or change between the two texts.
size_t editDistance(std::string_view a, std::string_view b) {
    std::vector<size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), size_t{0});
    for (size_t i = 0; i < a.size(); ++i) {
        size_t corner = row[0];
        row[0] = i + 1;
        for (size_t j = 0; j < b.size(); ++j) {
            const size_t changed = corner + (a[i] == b[j] ? 0 : 1);
            corner = row[j + 1];
            row[j + 1] = std::min({changed, corner + 1, row[j] + 1});
        }
    }
    return row.back();
}

/// A part of an identifier, such as "camel", is nearer than one that merely looks alike.
size_t distance(const zel::String& written, const zel::String& identifier) {
    const bool isPart = identifier.view().find(written.view()) != std::string_view::npos;
    return isPart ? 1 : 1 + editDistance(written, identifier);
}

zel::String nearestPlane(std::string_view written) {
    const zel::String lowered = zel::String(written).toLower();
    const std::vector<zel::String>& planes = planeIdentifiers();
    return *std::min_element(planes.begin(), planes.end(),
                             [&](const zel::String& a, const zel::String& b) {
                                 return distance(lowered, a) < distance(lowered, b);
                             });
}

bool isKnownPlane(const std::string& plane) {
    return planeIndex(zel::String(plane).toLower()) >= 0;
}

bool isNation(int32_t code) {
    return code == France || code == England || code == Usa || code == Germany;
}

void checkKey(const Record& squadron, Faults& faults) {
    const bool isKey =
        squadron.name.length() == 6 && isDigits(squadron.name) && isNation(nationOf(squadron));
    for (const zel::String& file : squadron.files) {
        if (squadron.name.length() > LongestKey)
            faults.push_back({file, 1,
                              "the file's name has more than 11 characters, and no pilot's unit= "
                              "would match it: name it by its six digits"});
        else if (!isKey)
            faults.push_back(
                {file, 1,
                 "the file becomes a squadron, but its name isn't 101, 102, 103 or 501 "
                 "and three digits: rename it, or take it out of the folder"});
    }
}

void checkTokens(const Record& squadron, const Entry& entry, Faults& faults) {
    const auto fault = [&](const char* what) {
        faults.push_back({squadron.fileOf(entry), entry.line, what});
    };
    if (!entry.unit.empty() || !entry.aceLevel.empty() || !entry.acePotential.empty())
        fault("unit=, acelevel= and acepotential= are read in pilot files only: take them out");
    if (!entry.skin.empty() && entry.aircraft.empty())
        fault("skin= is read beside aircraft= only: name the type");
    checkPlane(squadron, entry, faults);
}

/// The line behind which something is missing: of those that end before the month the last to end,
/// otherwise the first.
const Entry& lineBefore(const Record& squadron, Month month) {
    const Entry* found = &squadron.entries.front();
    for (const Entry& entry : squadron.entries)
        if (isWarDate(entry.until) && monthOf(entry.until) < month &&
            (!isWarDate(found->until) || monthOf(found->until) >= month ||
             found->until < entry.until))
            found = &entry;
    return *found;
}

zel::String rangeText(Month first, Month last) {
    return monthText(first) + (first == last ? zel::String() : " to " + monthText(last));
}

void checkGaps(const Record& squadron, const MonthRange& months, Faults& faults) {
    const auto isCovered = [&](Month month) {
        return std::any_of(squadron.entries.begin(), squadron.entries.end(),
                           [&](const Entry& entry) { return coversMonth(entry, month); });
    };
    for (Month first = months.first; first <= months.last; ++first) {
        if (isCovered(first))
            continue;
        Month last = first;
        while (last < months.last && !isCovered(last + 1))
            ++last;
        const Entry& entry = lineBefore(squadron, first);
        faults.push_back({squadron.fileOf(entry), entry.line,
                          "no aircraft from " + rangeText(first, last) +
                              ": carry this line's until= on, or add a line for these months"});
        first = last;
    }
}

void checkDraws(const Record& squadron, const MonthRange& months, Faults& faults) {
    const int32_t nation = nationOf(squadron);
    const auto isVain = [&](const std::vector<const char*>& planes) {
        return !planes.empty() &&
               std::none_of(planes.begin(), planes.end(),
                            [&](const char* plane) { return flies(squadron, plane); });
    };
    for (Month first = months.first; first <= months.last; ++first) {
        const std::vector<const char*> planes = planesOf(nation, first);
        if (!isVain(planes))
            continue;
        Month last = first;
        while (last < months.last && planesOf(nation, last + 1) == planes)
            ++last;
        zel::String list;
        for (const char* plane : planes)
            list = list + (list.empty() ? "" : ", ") + plane;
        const Entry& entry = lineBefore(squadron, first);
        faults.push_back({squadron.fileOf(entry), entry.line,
                          "none of its aircraft is in use in the career in " +
                              rangeText(first, last) + ": add a line with one of " + list});
        first = last;
    }
}

void checkMonths(const Record& squadron, Faults& faults) {
    const auto fault = [&](const char* what) { faults.push_back({squadron.files[0], 1, what}); };
    const auto any = [&](auto holds) {
        return std::any_of(squadron.entries.begin(), squadron.entries.end(), holds);
    };
    if (squadron.entries.empty())
        return; // the file as such was reported
    if (!any([](const Entry& entry) { return isWarDate(entry.date); }))
        return fault("no line has a date=, so the squadron never enters the war: add it");
    if (!any([](const Entry& entry) { return !entry.aircraft.empty(); }))
        return fault("no line has aircraft=: add the types that the squadron flies");
    const MonthRange months = activeMonths(squadron);
    checkGaps(squadron, months, faults);
    // A slip in a type's name is told already, and the type may be the one that is missing here.
    const bool hasUnknown = any([](const Entry& entry) {
        return !entry.aircraft.empty() && !isKnownPlane(entry.aircraft);
    });
    if (isNation(nationOf(squadron)) && !hasUnknown)
        checkDraws(squadron, months, faults);
}

} // namespace

void checkPlane(const Record& record, const Entry& entry, Faults& faults) {
    const auto fault = [&](const zel::String& what) {
        faults.push_back({record.fileOf(entry), entry.line, what});
    };
    if (!entry.aircraft.empty() && !isKnownPlane(entry.aircraft))
        fault("aircraft=" + zel::String(entry.aircraft) + " is not known: the nearest is " +
              nearestPlane(entry.aircraft));
    if (entry.skin.find_first_of(";{}\"") != entry.skin.npos)
        fault("skin=" + zel::String(entry.skin) +
              " holds one of ; { } \" which the simulator can't read: rename the skin's file");
}

void checkSquadron(const Record& squadron, Faults& faults) {
    checkKey(squadron, faults);
    for (const Entry& entry : squadron.entries)
        checkTokens(squadron, entry, faults);
    checkMonths(squadron, faults);
}

} // namespace datacheck
