#include "app/book/SavedHonours.h"

#include <algorithm>

#include "app/career/SaveSummary.h"
#include "app/record/Sqlite.h"
#include "engine/core/System.h"

namespace {

class SavedService {
public:
    SavedService(SqliteFile& record, const SaveSummary& save) : record(record), save(save) {}

    /// Without a day of its beginning if the record lacks the pilot.
    PilotService read() {
        service.nation = save.nation;
        service.until = save.date.dateNumber();
        readFlights();
        if (service.flights.empty() && !save.isPlayer)
            return service;
        if (save.state == CareerState::Fallen && !service.flights.empty())
            service.until = service.flights.back();
        service.since = firstDay();
        if (service.branches.empty())
            service.branches.push_back({service.since, branchOfUnit(save.unit)});
        readVictories();
        fillGap();
        return service;
    }

private:
    void readFlights() {
        SqliteStatement row(record, "SELECT date, number, unit FROM flight"
                                    " LEFT JOIN squadron ON squadron.id = flight.squadron"
                                    " WHERE pilot = ? AND date <= ? ORDER BY number LIMIT ?");
        row.with(save.pilotIndex, save.date.dateNumber(), save.missions);
        while (row.next()) {
            service.flights.push_back(row.integer(0));
            lastFlight = row.integer(1);
            const Branch branch = branchOfUnit(row.index(2));
            if (service.branches.empty() || service.branches.back().branch != branch)
                service.branches.push_back({row.integer(0), branch});
        }
    }

    /// On which he came in another's place, or the career's first day in the record.
    int32_t firstDay() {
        SqliteStatement row(record, "SELECT date FROM posting WHERE pilot = ?"
                                    " AND kind IN ('transferred', 'succeeded')" // of the index
                                    " AND kind = 'succeeded' ORDER BY id DESC LIMIT 1");
        row.with(save.pilotIndex);
        if (row.next())
            return row.integer(0);
        int32_t day = save.date.dateNumber();
        if (const auto page = int32_t(record.number("SELECT date FROM page ORDER BY id LIMIT 1"));
            page != 0)
            day = std::min(day, page);
        return service.flights.empty() ? day : std::min(day, service.flights.front());
    }

    void readVictories() {
        // CROSS: the flights first, whose victories are indexed.
        SqliteStatement row(record, "SELECT victory.date FROM flight"
                                    " CROSS JOIN victory ON victory.flight = flight.number"
                                    " WHERE flight.pilot = ?1 AND victor = ?1"
                                    " AND flight.number <= ?2 ORDER BY id LIMIT ?3");
        row.with(save.pilotIndex, lastFlight, save.victories);
        while (row.next())
            service.victories.push_back(row.integer(0));
    }

    /// What the save has and the record doesn't was done by the end of the last gap.
    void fillGap() {
        const auto gap = int32_t(record.number("SELECT until FROM gap ORDER BY id DESC LIMIT 1"));
        const auto fill = [&](std::vector<int32_t>& days, int32_t count) {
            days.resize(size_t(std::max(count, int32_t(days.size()))),
                        std::max(gap, service.since));
            std::sort(days.begin(), days.end());
        };
        fill(service.victories, save.victories);
        fill(service.flights, save.missions);
    }

    SqliteFile& record;
    const SaveSummary& save;
    PilotService service;
    int32_t lastFlight = 0; // its number
};

} // namespace

Honours savedHonours(const zel::String& record, const SaveSummary& save) {
    SqliteFile file;
    if (!save.isReadable || !zel::system::fileStatus(record).exists ||
        !file.open(record, SqliteFile::ReadOnly) ||
        file.number("SELECT value FROM meta WHERE key = 'career'") != save.careerNumber)
        return {};
    const PilotService service = SavedService(file, save).read();
    return file.failed() || service.since == 0 ? Honours() : honoursOf(service);
}
