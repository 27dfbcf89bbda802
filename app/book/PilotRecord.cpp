#include "app/book/PilotRecord.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "app/book/LogBook.h"
#include "app/book/RecordedService.h"
#include "app/book/RowSearch.h"
#include "app/career/CareerTexts.h"
#include "app/career/Database.h"
#include "app/career/GroundObjects.h"
#include "app/career/UnitNames.h"
#include "app/record/Sqlite.h"

namespace {

/// Reads one pilot. The player's own pilots are found through their flights, which the record
/// indexes.
class PilotReader {
public:
    PilotReader(SqliteFile& record, const Database& career, const BookTables& tables,
                PilotRows& rows, PilotRecord& pilot)
        : record(record), career(career), tables(tables), rows(rows), pilot(pilot) {}

    void read(bool mayGather) {
        const ReadLock lock(record);
        readMoves();
        const SavedPilot saved = savedPilot();
        pilot.served = readService(record, saved);
        pilot.flights = pilot.served.flights;
        if (pilot.served.since != 0)
            readOwn();
        else
            readOthers(mayGather);
        addUnrecorded(record, saved, pilot.served);
        pilot.flown =
            pilot.served.hasFlights ? int32_t(pilot.served.flights.size()) : pilot.missions;
        pilot.honours = honoursOf(pilot.served, tables);
    }

private:
    int32_t unitOf(int32_t squadron) const {
        return unitNumber(career, career.squadron(squadron).squadronFile);
    }

    SavedPilot savedPilot() const {
        SavedPilot saved;
        saved.pilot = pilot.pilot;
        saved.isPlayer = pilot.pilot == career.playerPilot;
        saved.isAlive = pilot.isAlive;
        saved.nation = pilot.nation;
        saved.unit = career.isSquadron(pilot.squadron) ? unitOf(pilot.squadron) : -1;
        saved.date = pilot.until;
        saved.missions = pilot.missions;
        saved.victories = pilot.victoryCount;
        return saved;
    }

    /// The flight in which he fell.
    void readFall() {
        SqliteStatement row(record, "SELECT date, squadron, number FROM flight"
                                    " WHERE pilot = ? AND dead <> 0");
        row.with(pilot.pilot);
        while (row.next())
            pilot.postings.push_back(
                {PilotPosting::Died, row.integer(0), row.integer(1), -1, victorIn(row.integer(2))});
    }

    /// Who brought him down in that flight; empty if nobody else did.
    zel::String victorIn(int32_t flight) {
        SqliteStatement row(record,
                            "SELECT other.pilot, other.name, other.type FROM flight_report AS own"
                            " JOIN flight_report AS other ON other.flight = own.flight"
                            " AND other.place = coalesce(own.shot_down_by, own.shot_down_by_own)"
                            " AND other.place <> own.place"
                            " WHERE own.flight = ? AND own.pilot = ?");
        row.with(flight, pilot.pilot);
        return row.next() ? nameOfReport(career, row.index(0), row.text(1), row.text(2))
                          : zel::String();
    }

    /// Transfers and successions.
    void readMoves() {
        SqliteStatement row(record,
                            "SELECT date, kind, squadron, from_squadron, other_name FROM posting"
                            " WHERE pilot = ? AND kind IN ('transferred', 'succeeded')"
                            " ORDER BY id");
        row.with(pilot.pilot);
        while (row.next()) {
            const bool isMove = row.text(1) == "transferred";
            pilot.postings.push_back({isMove ? PilotPosting::Moved : PilotPosting::Succeeded,
                                      row.integer(0), row.integer(2), row.index(3),
                                      isMove ? zel::String() : row.text(4)});
        }
    }

    void readOwn() {
        pilot.since = pilot.served.since;
        pilot.until = pilot.served.until;
        readFall();
        // CROSS: the flights first, whose victories are indexed.
        SqliteStatement row(record,
                            "SELECT victory.date, victim_name, victim_aircraft, died FROM flight"
                            " CROSS JOIN victory ON victory.flight = flight.number"
                            " WHERE flight.pilot = ?1 AND victor = ?1 ORDER BY id");
        row.with(pilot.pilot);
        takeVictories(row);
        const bool hasCome =
            std::any_of(pilot.postings.begin(), pilot.postings.end(), [](const PilotPosting& one) {
                return one.kind == PilotPosting::Succeeded;
            });
        if (!hasCome) {
            SqliteStatement gap(record,
                                "SELECT count(*) FROM gap WHERE since <= ?1 AND until >= ?1");
            gap.with(pilot.since);
            pilot.isSinceKnown = !gap.next() || gap.number(0) == 0;
            addArrival();
        }
        sortPostings();
    }

    /// He came to the squadron that his first shown move takes him from, or that he is still in.
    /// Earlier moves aren't shown.
    void addArrival() {
        auto& postings = pilot.postings;
        postings.erase(
            std::remove_if(postings.begin(), postings.end(),
                           [&](const PilotPosting& one) { return one.date < pilot.since; }),
            postings.end());
        const auto left =
            std::find_if(postings.begin(), postings.end(),
                         [](const PilotPosting& one) { return one.kind == PilotPosting::Moved; });
        const int32_t squadron = left == postings.end() ? pilot.squadron : left->from;
        postings.insert(postings.begin(), {PilotPosting::Came, pilot.since, squadron, -1, {}});
    }

    /// Rows that `rows` hasn't gathered are searched within his time of service.
    void readOthers(bool mayGather) {
        if (mayGather)
            rows.gather(record, PilotRows::All);
        readArrival();
        if (!pilot.isAlive)
            readDeath();
        sortPostings();
        readVictories();
        if (pilot.since == 0)
            pilot.since = pilot.victories.empty() ? pilot.until : pilot.victories.front().date;
        serve();
    }

    void readVictories() {
        if (pilot.victoryCount == 0)
            return;
        SqliteStatement known(record, "SELECT date, victim_name, victim_aircraft, died FROM victory"
                                      " WHERE id = ? AND victor = ?");
        for (const int64_t key : rows.victoriesOf(pilot.pilot))
            takeVictories(known.with(key, pilot.pilot));
        SqliteStatement newer(record, "SELECT date, victim_name, victim_aircraft, died FROM victory"
                                      " WHERE id > ? AND victor = ? ORDER BY id");
        newer.with(rows.lastVictory() > 0
                       ? rows.lastVictory()
                       : firstRowFrom(record, DatedTable::Victory, pilot.since) - 1,
                   pilot.pilot);
        takeVictories(newer);
    }

    /// His service by his postings and victories.
    void serve() {
        PilotService& served = pilot.served;
        served.since = pilot.since;
        served.until = pilot.until;
        served.hasFlights = false;
        for (const PilotPosting& one : pilot.postings)
            served.addBranch(one.date, branchOfUnit(unitOf(one.squadron)));
        if (pilot.postings.empty() && career.isSquadron(pilot.squadron))
            served.addBranch(pilot.since, branchOfUnit(unitOf(pilot.squadron)));
        for (const PilotVictory& victory : pilot.victories)
            served.victories.push_back(victory.date);
    }

    /// New pilots get the next indices, so the row of their arrival can be searched.
    void readArrival() {
        arrival = firstArrivalFrom(record, pilot.pilot);
        SqliteStatement row(record, "SELECT date, squadron FROM posting WHERE id = ?");
        row.with(arrival);
        if (!row.next())
            return;
        pilot.since = row.integer(0);
        pilot.postings.push_back({PilotPosting::Came, pilot.since, row.integer(1), -1, {}});
    }

    void readDeath() {
        SqliteStatement row(record,
                            "SELECT date, squadron,"
                            " CASE WHEN other = pilot THEN '' ELSE other_name END FROM posting"
                            " WHERE id >= ? AND pilot = ? AND kind = 'died' LIMIT 1");
        const int64_t known = rows.deathOf(pilot.pilot);
        row.with(known > 0 ? known : std::max(rows.lastPosting(), arrival), pilot.pilot);
        if (!row.next())
            return;
        pilot.until = row.integer(0);
        pilot.postings.push_back(
            {PilotPosting::Died, pilot.until, row.integer(1), -1, row.text(2)});
    }

    /// On one day he comes, moves and dies in that order.
    void sortPostings() {
        const auto order = [](const PilotPosting& one) {
            return one.kind == PilotPosting::Died ? 2 : one.kind == PilotPosting::Moved ? 1 : 0;
        };
        std::stable_sort(pilot.postings.begin(), pilot.postings.end(),
                         [&](const PilotPosting& a, const PilotPosting& b) {
                             return a.date != b.date ? a.date < b.date : order(a) < order(b);
                         });
    }

    void takeVictories(SqliteStatement& row) {
        while (row.next())
            pilot.victories.push_back(
                {row.integer(0), row.text(1), row.text(2), row.number(3) != 0});
    }

    SqliteFile& record;
    const Database& career;
    const BookTables& tables;
    PilotRows& rows;
    PilotRecord& pilot;
    int64_t arrival = 0; // its row; 0 if it isn't in the record
};

} // namespace

PilotRecord readPilot(SqliteFile& record, const Database& career, const BookTables& tables,
                      int32_t index, PilotRows* rows) {
    PilotRecord pilot;
    if (!career.isPilot(index))
        return pilot;
    const Pilot& saved = career.pilot(index);
    pilot.pilot = index;
    pilot.name = zel::arrayText(saved.name);
    pilot.squadron = saved.squadron;
    pilot.nation = career.squadron(saved.squadron).nation;
    pilot.isAlive = saved.alive != 0;
    pilot.until = career.calendar().dateNumber();
    pilot.missions = saved.missions;
    pilot.victoryCount = saved.shotdowns;
    if (saved.historic != 0)
        pilot.real = tables.ace(pilot.name);
    PilotRows none;
    PilotReader(record, career, tables, rows != nullptr ? *rows : none, pilot)
        .read(rows != nullptr);
    if (record.failed()) {
        pilot.isUnreadable = true;
        pilot.flown = saved.missions;
        pilot.honours = {};
        pilot.victories.clear();
        pilot.postings.clear();
        pilot.flights.clear();
    }
    return pilot;
}

std::vector<MachineCount> machinesOf(const PilotRecord& pilot) {
    std::vector<MachineCount> machines;
    for (const PilotVictory& victory : pilot.victories)
        addTo(machines, victory.machine);
    sortByCount(machines);
    return machines;
}

Shape shapeOf(const zel::String& machine) {
    // Types that only logs have, by their beginning; all others without a row are scouts.
    constexpr std::pair<std::string_view, Shape> LoggedShapes[] = {
        {"balloon", Shape::Balloon},       {"bristol", Shape::TwoSeater},
        {"dfw", Shape::TwoSeater},         {"breguet", Shape::TwoSeater},
        {"r.e.8", Shape::TwoSeater},       {"re8", Shape::TwoSeater},
        {"roland c", Shape::TwoSeater},    {"halberstadt cl", Shape::TwoSeater},
        {"f.e.2", Shape::TwoSeater},       {"felixf2a", Shape::TwoSeater},
        {"brandenburg", Shape::TwoSeater}, {"gotha", Shape::TwoSeater},
        {"handley", Shape::TwoSeater},     {"dh4", Shape::TwoSeater},
    };
    if (const Wording* ground = groundObject(machine.view()))
        return ground == &wording::Balloon ? Shape::Balloon : Shape::Ground;
    if (const std::optional<Shape> shape = planeShape(machine.view()))
        return *shape;
    const zel::String lowered = machine.toLower();
    for (const auto& [start, shape] : LoggedShapes)
        if (lowered.view().substr(0, start.size()) == start)
            return shape;
    return Shape::Scout;
}

std::vector<int32_t> pilotsNamed(const Database& career, std::string_view text) {
    std::vector<int32_t> found;
    std::vector<int32_t> exact;
    const std::string wanted = folded(text);
    for (int32_t i = 0; i < career.pilotCount(); ++i) {
        const std::string name = folded(zel::arrayText(career.pilots[i].name));
        if (name == wanted)
            exact.push_back(i);
        if (name.find(wanted) != std::string::npos)
            found.push_back(i);
    }
    if (std::find(exact.begin(), exact.end(), career.playerPilot) != exact.end())
        return {career.playerPilot};
    std::vector<int32_t>& named = exact.empty() ? found : exact;
    std::stable_sort(named.begin(), named.end(), [&](int32_t a, int32_t b) {
        return career.pilots[a].shotdowns > career.pilots[b].shotdowns;
    });
    return named;
}
