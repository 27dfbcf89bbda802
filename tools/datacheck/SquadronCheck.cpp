#include "tools/datacheck/SquadronCheck.h"

#include <algorithm>
#include <numeric>
#include <string>

#include "app/career/Aircraft.h"
#include "app/career/DataFolders.h"
#include "app/career/Nation.h"
#include "app/mission/MissionLine.h"
#include "tools/datacheck/Months.h"

namespace datacheck {

namespace {

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

/// A part of an identifier, such as "camel", is nearer than a text that only resembles it.
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

void checkKey(const HistoryRecord& squadron, Findings& findings) {
    const bool isKey =
        squadron.name.length() == 6 && isDigits(squadron.name) && isNation(nationOf(squadron));
    for (const zel::String& file : squadron.files) {
        if (squadron.name.view().size() > LongestSquadronKey)
            findings.emplace_back(file, 0,
                                  "the file's name has more than " +
                                      std::to_string(LongestSquadronKey) +
                                      " characters, and no pilot's unit= would match it",
                                  "name it by its six digits");
        else if (!isKey)
            findings.emplace_back(file, 0,
                                  "the file becomes a squadron, but its name isn't 101, 102, 103 "
                                  "or 501 and three digits",
                                  "rename it, or move it out of the folder");
    }
}

void checkKeys(const HistoryRecord& squadron, const HistoryLine& line, Findings& findings) {
    const auto report = [&](const char* message, const char* suggestion) {
        findings.emplace_back(squadron.fileOf(line), line.number, message, suggestion);
    };
    if (!line.unit.empty() || !line.aceLevel.empty() || !line.acePotential.empty())
        report("unit=, acelevel= and acepotential= are only read in pilot files", "remove them");
    if (!line.skin.empty() && line.aircraft.empty())
        report("skin= is only read with aircraft=", "add the aircraft");
    checkAircraft(squadron, line, findings);
}

/// The line after which something is missing: the last one that ends before the month, otherwise
/// the first.
const HistoryLine& lineBefore(const HistoryRecord& squadron, Month month) {
    const HistoryLine* found = &squadron.lines.front();
    for (const HistoryLine& line : squadron.lines)
        if (isWarDate(line.until) && monthOf(line.until) < month &&
            (!isWarDate(found->until) || monthOf(found->until) >= month ||
             found->until < line.until))
            found = &line;
    return *found;
}

zel::String rangeText(const MonthRange& range) {
    return monthText(range.first) +
           (range.first == range.last ? zel::String() : " to " + monthText(range.last));
}

/// Calls report(range) for the runs of months that fail the test. A run extends as long as
/// alike(first, month) holds.
template <typename Fails, typename Alike, typename Report>
void forEachRun(const MonthRange& months, const Fails& fails, const Alike& alike,
                const Report& report) {
    for (Month first = months.first; first <= months.last; ++first) {
        if (!fails(first))
            continue;
        Month last = first;
        while (last < months.last && alike(first, last + 1))
            ++last;
        report(MonthRange{first, last});
        first = last;
    }
}

void checkGaps(const HistoryRecord& squadron, const MonthRange& months, Findings& findings) {
    const auto isBare = [&](Month month) {
        return std::none_of(squadron.lines.begin(), squadron.lines.end(),
                            [&](const HistoryLine& line) { return coversMonth(line, month); });
    };
    const auto isBareToo = [&](Month /*first*/, Month month) { return isBare(month); };
    forEachRun(months, isBare, isBareToo, [&](const MonthRange& range) {
        const HistoryLine& line = lineBefore(squadron, range.first);
        findings.emplace_back(squadron.fileOf(line), line.number,
                              "no aircraft from " + rangeText(range),
                              "extend the until= of this line, or add a line for these months");
    });
}

void checkDraws(const HistoryRecord& squadron, const MonthRange& months, Findings& findings) {
    const int32_t nation = nationOf(squadron);
    const auto isIdle = [&](Month month) {
        const std::vector<const char*> planes = planesOf(nation, month);
        return !planes.empty() &&
               std::none_of(planes.begin(), planes.end(),
                            [&](const char* plane) { return flies(squadron, plane); });
    };
    const auto hasSamePlanes = [&](Month first, Month month) {
        return planesOf(nation, month) == planesOf(nation, first);
    };
    forEachRun(months, isIdle, hasSamePlanes, [&](const MonthRange& range) {
        zel::String list;
        for (const char* plane : planesOf(nation, range.first))
            list = list + (list.empty() ? "" : ", ") + plane;
        const HistoryLine& line = lineBefore(squadron, range.first);
        findings.emplace_back(squadron.fileOf(line), line.number,
                              "the career uses none of the squadron's aircraft in " +
                                  rangeText(range),
                              "add a line with one of " + list);
        findings.back().isWarning = true; // it is only never met as an enemy
    });
}

void checkMonths(const HistoryRecord& squadron, Findings& findings) {
    const auto report = [&](const char* message, const char* suggestion) {
        findings.emplace_back(squadron.files[0], 0, message, suggestion);
    };
    const auto any = [&](auto holds) {
        return std::any_of(squadron.lines.begin(), squadron.lines.end(), holds);
    };
    if (squadron.lines.empty())
        return; // the file itself is reported
    if (!any([](const HistoryLine& line) { return isWarDate(line.date); }))
        return report("no line has a date=, so the squadron never enters the war", "add it");
    if (!hasAircraft(squadron)) {
        if (!any([](const HistoryLine& line) { return line.action == "unit"; }))
            report("no line has aircraft=", "add what the squadron flies");
        return;
    }
    const MonthRange months = activeMonths(squadron);
    checkGaps(squadron, months, findings);
    // An unknown aircraft is already reported, and may be a typo for the one that is missing here.
    const bool hasUnknown = any([](const HistoryLine& line) {
        return !line.aircraft.empty() && !isKnownPlane(line.aircraft);
    });
    if (isNation(nationOf(squadron)) && !hasUnknown)
        checkDraws(squadron, months, findings);
}

} // namespace

void checkAircraft(const HistoryRecord& record, const HistoryLine& line, Findings& findings) {
    const auto report = [&](const zel::String& message, const zel::String& suggestion) {
        findings.emplace_back(record.fileOf(line), line.number, message, suggestion);
    };
    if (!line.aircraft.empty() && !isKnownPlane(line.aircraft))
        report("aircraft=" + line.aircraft + " is not known",
               "the nearest is " + nearestPlane(line.aircraft));
    if (isPlain(line.skin) && !isMissionSkin(line.skin)) // the others are reported already
        report("skin=" + line.skin +
                   " is not a file name that the simulator can read, and missions "
                   "leave it out",
               "rename the skin's file: without quotes, ; { } / \\ : and ..");
}

void checkSquadron(const HistoryRecord& squadron, Findings& findings) {
    checkKey(squadron, findings);
    for (const HistoryLine& line : squadron.lines)
        checkKeys(squadron, line, findings);
    checkMonths(squadron, findings);
}

} // namespace datacheck
