#include "app/book/LogBook.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "app/book/PilotRecord.h"
#include "app/career/Calendar.h"
#include "app/career/Database.h"
#include "app/career/GroundObjects.h"
#include "app/career/Nation.h"
#include "app/record/Sqlite.h"

namespace {

constexpr double DaysPerMonth = 365.25 / 12;

/// The tables of flights, which all have the flight's number as their first column and are read in
/// its order, in step.
class BookReader {
public:
    explicit BookReader(SqliteFile& record) : record(record) {}

    void read(LogBook& book) {
        readFlights(book);
        SqliteStatement planes(record, "SELECT flight, pilot, name, nation, aircraft"
                                       " FROM flight_plane ORDER BY flight, place");
        SqliteStatement reports(record,
                                "SELECT flight, pilot, type, nation, shot_down, shot_down_by,"
                                " shot_down_by_own, damage > 0 OR injury > 0 OR kills > 0"
                                " FROM flight_report ORDER BY flight, place");
        bool hasPlane = planes.next();
        bool hasReport = reports.next();
        for (BookFlight& flight : book.flights) {
            plan.clear();
            for (; hasPlane && planes.integer(0) <= flight.number; hasPlane = planes.next())
                if (planes.integer(0) == flight.number)
                    takePlane(planes, flight);
            own = -1;
            machines.clear();
            victors.clear();
            unseen.clear();
            for (; hasReport && reports.integer(0) <= flight.number; hasReport = reports.next())
                if (reports.integer(0) == flight.number)
                    takeReport(reports, flight);
            seekUnseen(flight);
            finish(book, flight);
        }
        sortByCount(book.victims);
    }

private:
    void readFlights(LogBook& book) {
        SqliteStatement row(record,
                            "SELECT number, date, pilot, pilot_name, squadron, base, aircraft,"
                            " kills, injury, damage, landed, dead FROM flight"
                            " ORDER BY number");
        while (row.next()) {
            BookFlight& flight = book.flights.emplace_back();
            flight.number = row.integer(0);
            flight.date = row.integer(1);
            flight.pilot = row.integer(2);
            flight.pilotName = row.text(3);
            flight.squadron = row.integer(4);
            flight.base = row.text(5);
            flight.aircraft = row.text(6);
            flight.isNamed = !row.isNull(7);
            flight.victories = row.integer(7);
            flight.injury = row.integer(8);
            flight.damage = static_cast<float>(row.real(9));
            flight.hasLanded = row.number(10) != 0;
            flight.isDead = row.number(11) != 0;
        }
    }

    void takePlane(const SqliteStatement& row, BookFlight& flight) {
        const int32_t pilot = row.index(1);
        const int32_t nation = row.integer(3);
        if (plan.empty())
            side = nation; // the player's plane is the first
        else if (isSameSide(nation, side))
            flight.companions.push_back(row.text(2));
        plan.push_back({pilot, row.text(4)});
    }

    /// Finds, in the flight's events, opponents whose reports show no part in the fight. Most are
    /// in one of the first events.
    void seekUnseen(BookFlight& flight) {
        if (unseen.empty())
            return;
        SqliteStatement event(record, "SELECT actor, target FROM flight_event WHERE flight = ?"
                                      " ORDER BY place");
        event.with(flight.number);
        while (!unseen.empty() && event.next())
            for (const int column : {0, 1}) {
                const auto found = std::find(unseen.begin(), unseen.end(), event.index(column));
                if (found == unseen.end())
                    continue;
                addTo(flight.opponents, machines[*found]);
                unseen.erase(found);
            }
    }

    void takeReport(const SqliteStatement& row, BookFlight& flight) {
        const size_t place = machines.size();
        const int32_t pilot = row.index(1);
        const auto planned = std::find_if(plan.begin(), plan.end(), [&](const Planned& one) {
            return pilot >= 0 && one.pilot == pilot;
        });
        machines.push_back(planned != plan.end() ? planned->aircraft : row.text(2));
        victors.push_back(row.number(4) != 0 ? row.index(5) : -1);
        if (pilot == flight.pilot) {
            if (own < 0) {
                own = static_cast<int32_t>(place);
                flight.isLost = row.number(4) != 0;
                const auto isOther = [&](int32_t by) { return by >= 0 && by != own; };
                flight.isShotDown =
                    flight.isLost && (isOther(row.index(5)) || isOther(row.index(6)));
            }
        } else if (!isSameSide(row.integer(3), side) && groundObject(row.text(2)) == nullptr) {
            if (row.number(4) != 0 || row.number(7) != 0)
                addTo(flight.opponents, machines.back());
            else
                unseen.push_back(static_cast<int32_t>(place));
        }
    }

    void finish(LogBook& book, BookFlight& flight) {
        sortByCount(flight.opponents);
        for (size_t i = 0; own >= 0 && i < victors.size(); ++i)
            if (victors[i] == own)
                addTo(book.victims, machines[i]);
    }

    struct Planned {
        int32_t pilot;
        zel::String aircraft;
    };

    SqliteFile& record;
    // Of the flight that is being read:
    std::vector<Planned> plan;
    int32_t side = 0;                  // the player's nation
    std::vector<int32_t> unseen;       // opponents who may not have taken part
    std::vector<zel::String> machines; // of its reports
    std::vector<int32_t> victors;      // over them
    int32_t own = -1;                  // the player's report
};

void addTotals(LogBook& book, const Database& career) {
    std::map<int32_t, int32_t> totals; // by pilot
    for (const BookFlight& flight : book.flights) {
        totals[flight.pilot] -= flight.victories;
        book.victories += flight.victories;
    }
    for (auto& [pilot, total] : totals)
        total = career.isPilot(pilot) ? std::max(0, total + career.pilot(pilot).shotdowns) : 0;
    for (BookFlight& flight : book.flights)
        flight.total = totals[flight.pilot] += flight.victories;
}

/// Adds the titles of those who fell, and the ranks with which their successors began.
void addTitles(LogBook& book, SqliteFile& record, const Database& career,
               const BookTables& tables) {
    for (size_t i = 0; i < book.flights.size(); ++i) {
        BookFlight& flight = book.flights[i];
        if (!flight.isDead)
            continue;
        const bool isLast = i + 1 == book.flights.size();
        flight.pilotTitle =
            titleOf(readPilot(record, career, tables, flight.pilot).honours, flight.pilotName);
        const int32_t next = isLast ? career.playerPilot : book.flights[i + 1].pilot;
        if (next == flight.pilot || !career.isPilot(next))
            continue;
        Honours first = readPilot(record, career, tables, next).honours;
        first.ranks.resize(std::min<size_t>(first.ranks.size(), 1));
        first.awards.clear();
        flight.successor = zel::arrayText(career.pilot(next).name);
        flight.successorTitle = titleOf(first, flight.successor);
    }
}

} // namespace

void addTo(std::vector<MachineCount>& machines, const zel::String& name, int32_t count) {
    const auto known = std::find_if(machines.begin(), machines.end(),
                                    [&](const MachineCount& m) { return m.aircraft == name; });
    if (known == machines.end())
        machines.push_back({name, count});
    else
        known->count += count;
}

void sortByCount(std::vector<MachineCount>& machines) {
    std::stable_sort(
        machines.begin(), machines.end(),
        [](const MachineCount& a, const MachineCount& b) { return a.count > b.count; });
}

int32_t LogBook::months() const {
    if (flights.empty())
        return 0;
    const int32_t days = Calendar::ofNumber(flights.back().date).dayNumber() -
                         Calendar::ofNumber(flights.front().date).dayNumber();
    return static_cast<int32_t>(std::lround((days + 1) / DaysPerMonth));
}

LogBook readLogBook(SqliteFile& record, const Database& career, const BookTables& tables) {
    LogBook book;
    BookReader(record).read(book);
    if (record.failed()) {
        book = {};
        book.isUnreadable = true;
        return book;
    }
    addTotals(book, career);
    addTitles(book, record, career, tables);
    return book;
}
