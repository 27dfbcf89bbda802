#include "app/book/Standing.h"

#include <algorithm>
#include <string>

#include "app/book/LogBookText.h"
#include "app/book/ServiceWording.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"

namespace {

// Column widths of the roll, in letters: numbers end where the heads end.
constexpr size_t PlaceLetters = 3;
constexpr size_t NameLetters = 31;
constexpr size_t VictoryColumn = 4;
constexpr size_t MissionLetters = RollLetters - PlaceLetters - 1 - NameLetters - VictoryColumn;

StandingRow rowOf(const Database& career, const BookTables& tables, int32_t index, size_t place) {
    const Pilot& pilot = career.pilot(index);
    StandingRow row;
    row.pilot = index;
    row.place = int32_t(place);
    row.name = zel::arrayText(pilot.name);
    row.victories = pilot.shotdowns;
    row.missions = pilot.missions;
    row.isOwn = index == career.playerPilot;
    row.isAlive = pilot.alive != 0;
    if (pilot.historic != 0)
        row.real = tables.ace(row.name);
    return row;
}

zel::String marked(const StandingRow& row, const zel::String& name) {
    if (row.isOwn)
        return textOf(row.isAlive ? wording::OwnName : wording::OwnLateName, {name});
    return row.isAlive ? name : textOf(wording::LateName, {name});
}

/// Right-aligned in `letters` characters.
zel::String atRight(const zel::String& text, size_t letters) {
    const auto length = size_t(text.length());
    return zel::String(std::string(letters - std::min(letters, length), ' ')) + text;
}

} // namespace

std::vector<StandingRow> rosterRows(const Database& career, const BookTables& tables) {
    std::vector<StandingRow> rows;
    for (const int32_t pilot : career.squadronRoster(career.player().squadron))
        rows.push_back(rowOf(career, tables, pilot, rows.size() + 1));
    return rows;
}

std::vector<StandingRow> aceRows(const Database& career, const BookTables& tables, size_t most) {
    std::vector<StandingRow> rows;
    for (const int32_t pilot : bestPilots(career.pilots, most))
        if (career.pilot(pilot).shotdowns >= AceShotdowns)
            rows.push_back(rowOf(career, tables, pilot, rows.size() + 1));
    return rows;
}

StandingRow standingOf(const Database& career, const BookTables& tables, int32_t index) {
    const Pilot& own = career.pilot(index);
    if (own.shotdowns == 0)
        return rowOf(career, tables, index, 0);
    size_t better = 0;
    for (int32_t i = 0; i < career.pilotCount(); ++i) {
        const Pilot& other = career.pilots[i];
        // Compares in the order of bestPilots(), without sorting all pilots.
        const bool isBetter = other.shotdowns != own.shotdowns ? other.shotdowns > own.shotdowns
                              : other.missions != own.missions ? other.missions > own.missions
                                                               : i < index;
        better += isBetter ? 1 : 0;
    }
    return rowOf(career, tables, index, better + 1);
}

zel::String markedName(const StandingRow& row) { return marked(row, row.name); }

zel::String shortMarkedName(const StandingRow& row) { return marked(row, shortName(row.name)); }

zel::String realScoreText(const StandingRow& row, int32_t today) {
    if (row.real == nullptr)
        return {};
    const int32_t score = BookTables::realScore(*row.real, today);
    return score >= 0 ? zel::String(score) : textOf(wording::UnknownScore);
}

zel::String placeNumber(const StandingRow& row) { return zel::String(row.place) + "."; }

zel::String placeText(const StandingRow& own) {
    return own.place > 0 ? textOf(wording::YourPlace, {own.place}) : textOf(wording::NoVictoryYet);
}

zel::String rollLine(const StandingRow& row) {
    zel::String name = markedName(row);
    if (size_t(name.length()) > NameLetters)
        name = shortMarkedName(row);
    return atRight(placeNumber(row), PlaceLetters) + " " + column(name, NameLetters) +
           atRight(zel::String(row.victories), VictoryColumn) +
           atRight(zel::String(row.missions), MissionLetters);
}

zel::String shortName(const zel::String& name) {
    const std::string_view whole = name.view();
    const size_t blank = whole.find(' ');
    if (blank == std::string_view::npos || blank == 0)
        return name;
    return zel::String(whole.substr(0, 1)) + "." + zel::String(whole.substr(blank));
}
