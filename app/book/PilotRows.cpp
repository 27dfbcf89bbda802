#include "app/book/PilotRows.h"

#include <algorithm>
#include <functional>
#include <string_view>

#include "app/record/Sqlite.h"

namespace {

constexpr int32_t MostPilots = 1'000'000; // more than any war has: the file may hold any number

} // namespace

bool PilotRows::gather(SqliteFile& record, int64_t most) {
    if (page.id == 0 || hashOf(record, page.id) != page.hash)
        *this = {};
    // The rows of a page never change, so remember the newer page.
    if (const PageKeys newest = newestPage(record); newest.id > 0)
        page = newest;
    readOn(record, "SELECT id, victor FROM victory WHERE id > ? AND id <= ? ORDER BY id LIMIT ?",
           page.victory, most, victories);
    readOn(record,
           "SELECT id, CASE kind WHEN 'died' THEN pilot ELSE -1 END FROM posting"
           " WHERE id > ? AND id <= ? ORDER BY id LIMIT ?",
           page.posting, most, deaths);
    return most > 0 && !record.failed();
}

PilotRows::PageKeys PilotRows::newestPage(SqliteFile& record) {
    PageKeys newest;
    SqliteStatement row(record, "SELECT id, victory, posting FROM page ORDER BY id DESC LIMIT 1");
    if (row.next())
        newest = {row.number(0), 0, row.number(1), row.number(2)};
    newest.hash = hashOf(record, newest.id);
    return newest;
}

uint64_t PilotRows::hashOf(SqliteFile& record, int64_t page) {
    SqliteStatement row(record, "SELECT checksum FROM page WHERE id = ?");
    row.with(page);
    return row.next() ? std::hash<std::string_view>()(row.rawText(0)) : 0;
}

void PilotRows::readOn(SqliteFile& record, const char* sql, int64_t until, int64_t& most,
                       KnownRows& known) {
    if (known.last >= until || most <= 0)
        return;
    SqliteStatement row(record, sql);
    row.with(known.last, until, most);
    int64_t count = 0;
    for (; row.next(); ++count) {
        known.last = row.number(0);
        const int32_t pilot = row.integer(1);
        if (pilot < 0 || pilot >= MostPilots)
            continue;
        if (static_cast<size_t>(pilot) >= known.newest.size())
            known.newest.resize(static_cast<size_t>(pilot) + 1, -1);
        int32_t& newest = known.newest[pilot];
        known.rows.push_back({static_cast<int32_t>(known.last), newest});
        newest = static_cast<int32_t>(known.rows.size()) - 1;
    }
    if (count < most)
        known.last = std::max(known.last, until); // keys may be missing at the end
    most -= count;
}

int32_t PilotRows::newestOf(const KnownRows& known, int32_t pilot) {
    return pilot >= 0 && static_cast<size_t>(pilot) < known.newest.size() ? known.newest[pilot]
                                                                          : -1;
}

std::vector<int64_t> PilotRows::victoriesOf(int32_t pilot) const {
    std::vector<int64_t> keys;
    for (int32_t i = newestOf(victories, pilot); i >= 0; i = victories.rows[i].before)
        keys.push_back(victories.rows[i].key);
    std::reverse(keys.begin(), keys.end());
    return keys;
}

int64_t PilotRows::deathOf(int32_t pilot) const {
    const int32_t found = newestOf(deaths, pilot);
    return found >= 0 ? deaths.rows[found].key : 0;
}
