#include "tools/career/RecordLines.h"

#include "app/book/RowSearch.h"
#include "app/career/Aircraft.h"
#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/career/Wording.h"
#include "app/record/Sqlite.h"
#include "tools/career/SessionWording.h"

namespace {

zel::String dateText(int32_t date) { return dateInLanguage(Calendar::ofNumber(date)); }

zel::String aircraftText(const zel::String& identifier) {
    return nameInLanguage(planeDisplayName(identifier));
}

/// "Jasta 11"; the number of a unit without a name.
zel::String squadronName(const SqliteStatement& row, int name, int index) {
    return row.isNull(name) ? zel::String(row.integer(index)) : row.text(name);
}

zel::String transferLine(const SqliteStatement& row, const zel::String& date, int32_t squadron) {
    if (row.index(5) == squadron)
        return textOf(wording::PostedAway, {date, row.text(2), squadronName(row, 6, 3)});
    return textOf(wording::PostedHere, {date, row.text(2), squadronName(row, 7, 5)});
}

zel::String postingLine(const SqliteStatement& row, int32_t squadron) {
    const zel::String date = dateText(row.integer(0));
    const zel::String kind = row.text(1);
    const zel::String other = row.text(4);
    if (kind == "joined")
        return textOf(wording::PostedNew, {date, row.text(2)});
    if (kind == "transferred")
        return transferLine(row, date, squadron);
    if (kind == "succeeded")
        return textOf(wording::PostedSuccessor, {date, row.text(2), other});
    return other.empty() ? textOf(wording::PostedDead, {date, row.text(2)})
                         : textOf(wording::PostedKilled, {date, row.text(2), other});
}

const std::string VictoryColumns = "SELECT date, victor_name, victor_aircraft, victim_name,"
                                   " victim_aircraft, died FROM victory";

/// The victories whose victor has `part` in his name, without regard to case; all of them if it is
/// empty.
std::vector<zel::String> linesOfVictories(SqliteStatement& row, std::string_view part = {}) {
    std::vector<zel::String> lines;
    while (row.next())
        if (lowered(row.text(1)).find(lowered(part)) != std::string::npos)
            lines.push_back(
                textOf(row.number(5) != 0 ? wording::RecordedKill : wording::RecordedVictory,
                       {dateText(row.integer(0)), row.text(1), aircraftText(row.text(2)),
                        row.text(3), aircraftText(row.text(4))}));
    return lines;
}

} // namespace

std::vector<zel::String> flightLines(SqliteFile& record) {
    std::vector<zel::String> lines;
    SqliteStatement row(record, "SELECT number, date, base, aircraft, coalesce(kills, 0),"
                                " coalesce(fate, '') FROM flight ORDER BY number");
    while (row.next())
        lines.push_back(
            textOf(wording::RecordedFlight,
                   {row.integer(0), dateText(row.integer(1)), nameInLanguage(row.text(2)),
                    aircraftText(row.text(3)), row.integer(4), row.text(5)}));
    return lines;
}

std::vector<zel::String> victoryLines(SqliteFile& record, std::string_view name) {
    SqliteStatement row(record, VictoryColumns + " ORDER BY id");
    return linesOfVictories(row, name);
}

// A successor's predecessor may have been a successor himself.
std::vector<zel::String> ownVictoryLines(SqliteFile& record, int32_t player) {
    SqliteStatement row(record,
                        "WITH RECURSIVE own(pilot) AS (SELECT ?1 UNION SELECT other FROM posting"
                        " JOIN own ON posting.pilot = own.pilot WHERE kind = 'succeeded') " +
                            VictoryColumns + " WHERE victor IN own ORDER BY id");
    row.with(player);
    return linesOfVictories(row);
}

std::vector<zel::String> postingLines(SqliteFile& record, int32_t squadron) {
    std::vector<zel::String> lines;
    SqliteStatement row(record,
                        "SELECT date, kind, posting.name, squadron, coalesce(other_name, ''),"
                        " from_squadron, here.name, there.name FROM posting"
                        " LEFT JOIN squadron AS here ON here.id = posting.squadron"
                        " LEFT JOIN squadron AS there ON there.id = posting.from_squadron"
                        " WHERE posting.squadron = ?1 OR from_squadron = ?1 ORDER BY posting.id");
    row.with(squadron);
    while (row.next())
        lines.push_back(postingLine(row, squadron));
    return lines;
}
