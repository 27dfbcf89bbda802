#include "app/book/WarEnd.h"

#include <algorithm>
#include <numeric>

#include "app/book/Condolence.h"
#include "app/book/LogBookWording.h"
#include "app/book/WarEndWording.h"
#include "app/career/Calendar.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/record/Sqlite.h"

namespace {

/// Reads it part by part.
class EndReader {
public:
    EndReader(SqliteFile& record, const Database& career, const BookTables& tables, WarEnd& end)
        : record(record), career(career), tables(tables), end(end) {}

    void read() {
        int32_t own = career.playerPilot;
        if (const int32_t fallen = lastFallen(record, career); fallen >= 0)
            own = fallen;
        end.pilot = readPilot(record, career, tables, own);
        fillBoard(own);
        readPredecessors(own);
        readComrades();
        const auto& aces = tables.aces;
        const auto best =
            std::max_element(aces.begin(), aces.end(), [](const RealAce& a, const RealAce& b) {
                return a.victories < b.victories;
            });
        if (best != aces.end())
            end.realFirst = &*best;
    }

private:
    void readPredecessors(int32_t own) {
        for (int32_t one = predecessorOf(record, career, own);
             one >= 0 && std::find(end.fallen.begin(), end.fallen.end(), one) == end.fallen.end();
             one = predecessorOf(record, career, one))
            end.fallen.push_back(one);
        if (end.fallen.empty())
            return;
        const Pilot& last = career.pilot(end.fallen.front());
        end.lastFallen = zel::arrayText(last.name);
        end.lastFallenVictories = last.shotdowns;
    }

    void readComrades() {
        SqliteStatement row(
            record, "SELECT DISTINCT plane.pilot FROM flight CROSS JOIN flight_plane AS plane"
                    " ON plane.flight = flight.number AND plane.squadron = flight.squadron"
                    " WHERE plane.place > 0 AND plane.pilot >= 0");
        while (row.next()) {
            const int32_t pilot = row.integer(0);
            if (!career.isPilot(pilot) || pilot == end.pilot.pilot || isPlayers(pilot))
                continue;
            ++end.comrades;
            end.survivors += career.pilot(pilot).alive != 0 ? 1 : 0;
        }
    }
    bool isPlayers(int32_t pilot) const {
        return pilot == career.playerPilot ||
               std::find(end.fallen.begin(), end.fallen.end(), pilot) != end.fallen.end();
    }

    void fillBoard(int32_t own) {
        StandingRow standing = standingOf(career, tables, own);
        standing.isOwn = true;
        end.place = standing.place;
        end.board = aceRows(career, tables, BoardRows);
        for (StandingRow& row : end.board)
            row.isOwn = row.pilot == own;
        if (standing.place == 0 || standing.place <= int32_t(end.board.size()))
            return;
        if (end.board.size() == BoardRows)
            end.board.pop_back();
        end.hasGap = standing.place != int32_t(end.board.size()) + 1;
        end.board.push_back(standing);
    }

    SqliteFile& record;
    const Database& career;
    const BookTables& tables;
    WarEnd& end;
};

zel::String dayInBook(int32_t date) { return bookDate(Calendar::ofNumber(date)); }

/// Empty for one who flew to the end since an unknown day.
zel::String daysText(const PilotRecord& pilot) {
    const zel::String since = dayInBook(pilot.since);
    if (pilot.isAlive)
        return pilot.isSinceKnown ? textOf(wording::FlewToTheEnd, {since}) : zel::String();
    const zel::String until = dayInBook(pilot.until);
    return pilot.isSinceKnown ? textOf(wording::FlewUntil, {since, until})
                              : textOf(wording::FlewUntilAlone, {until});
}

zel::String placeText(const WarEnd& end) {
    if (end.pilot.victoryCount == 0)
        return end.pilot.isAlive ? textOf(wording::CameHome) : zel::String();
    const bool isAce = end.pilot.victoryCount >= AceShotdowns;
    return textOf(isAce ? wording::PlaceOfAce : wording::PlaceOfPilot, {end.place});
}

zel::String predecessorsText(const WarEnd& end, NamedFallen named) {
    if (end.fallen.empty() || named == NamedFallen::None)
        return {};
    const zel::String name =
        named == NamedFallen::Brief ? shortName(end.lastFallen) : end.lastFallen;
    if (end.fallen.size() > 1)
        return textOf(wording::SeveralBeforeHim, {int32_t(end.fallen.size()), name});
    return textOf(wording::BeforeHim,
                  {name, countText(wording::Victories, end.lastFallenVictories)});
}

} // namespace

WarEnd readWarEnd(SqliteFile& record, const Database& career, const BookTables& tables) {
    WarEnd end;
    if (career.hasCareer())
        EndReader(record, career, tables, end).read();
    return end;
}

zel::String comradesText(const WarEnd& end) {
    if (end.comrades < 2)
        return {};
    if (end.survivors == end.comrades)
        return textOf(wording::AllComrades, {end.comrades});
    return textOf(wording::Comrades[std::min(end.survivors, 2)], {end.comrades, end.survivors});
}

zel::String realFirstText(const WarEnd& end) {
    if (end.realFirst == nullptr)
        return {};
    return textOf(wording::RealFirst,
                  {end.realFirst->name, countText(wording::Victories, end.realFirst->victories)});
}

zel::String careerLines(const WarEnd& end, NamedFallen named) {
    const PilotRecord& pilot = end.pilot;
    return joined(
        {textOf(wording::FlightsAndVictories, {countText(wording::BookFlights, pilot.flown),
                                               countText(wording::Victories, pilot.victoryCount)}),
         daysText(pilot), placeText(end), predecessorsText(end, named)},
        "\n");
}

zel::String realTotalText(const StandingRow& row) {
    return row.real == nullptr ? zel::String() : zel::String(row.real->victories);
}

std::vector<zel::String> warEndLines(const WarEnd& end) {
    std::vector<zel::String> lines = {textOf(wording::Hostilities), comradesText(end),
                                      realFirstText(end),
                                      titleOf(end.pilot.honours, end.pilot.name), careerLines(end)};
    for (const StandingRow& row : end.board) {
        const zel::String place = placeNumber(row);
        const zel::String name = markedName(row);
        lines.push_back(
            row.real == nullptr
                ? textOf(wording::BoardLine, {place, name, row.victories})
                : textOf(wording::BoardLineReal, {place, name, row.victories, realTotalText(row)}));
    }
    return lines;
}
