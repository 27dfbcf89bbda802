#include "app/record/RecordSchema.h"

#include <iterator>
#include <string>

#include "app/record/Sqlite.h"

// Dates are yyyymmdd. Pilots and squadrons are the career's indices.
const char* const RecordSteps[] = {
    R"(
CREATE TABLE meta(key TEXT PRIMARY KEY, value) WITHOUT ROWID;
CREATE TABLE page(id INTEGER PRIMARY KEY, date INTEGER NOT NULL, checksum TEXT NOT NULL,
    flight INTEGER NOT NULL, victory INTEGER NOT NULL, posting INTEGER NOT NULL,
    base INTEGER NOT NULL, gap INTEGER NOT NULL);
CREATE TABLE gap(id INTEGER PRIMARY KEY, since INTEGER NOT NULL, until INTEGER NOT NULL);
CREATE TABLE squadron(id INTEGER PRIMARY KEY, nation INTEGER NOT NULL, unit INTEGER, name TEXT);
CREATE TABLE flight(number INTEGER PRIMARY KEY, date INTEGER NOT NULL, pilot INTEGER NOT NULL,
    pilot_name TEXT NOT NULL, squadron INTEGER NOT NULL, base TEXT NOT NULL,
    on_channel_map INTEGER NOT NULL, x REAL NOT NULL, z REAL NOT NULL, aircraft TEXT NOT NULL,
    log TEXT NOT NULL, log_hash TEXT NOT NULL, seconds REAL NOT NULL, kills INTEGER, injury INTEGER,
    damage REAL, landed INTEGER, dead INTEGER, fate TEXT, cause TEXT);
CREATE TABLE flight_plane(flight INTEGER, place INTEGER, pilot INTEGER, name TEXT NOT NULL,
    squadron INTEGER, aircraft TEXT NOT NULL, nation INTEGER NOT NULL, level INTEGER NOT NULL,
    PRIMARY KEY(flight, place)) WITHOUT ROWID;
CREATE TABLE flight_report(flight INTEGER, place INTEGER, pilot INTEGER, name TEXT NOT NULL,
    type TEXT NOT NULL, nation INTEGER NOT NULL, is_player INTEGER NOT NULL, kills INTEGER NOT NULL,
    damage REAL NOT NULL, injury INTEGER NOT NULL, killed INTEGER NOT NULL,
    shot_down INTEGER NOT NULL, shot_down_by INTEGER, shot_down_by_own INTEGER,
    status INTEGER NOT NULL, dead INTEGER NOT NULL, fate TEXT NOT NULL, cause TEXT,
    PRIMARY KEY(flight, place)) WITHOUT ROWID;
CREATE TABLE flight_event(flight INTEGER, place INTEGER, seconds REAL NOT NULL, kind TEXT NOT NULL,
    actor INTEGER, target INTEGER, amount REAL, x REAL, y REAL, z REAL,
    PRIMARY KEY(flight, place)) WITHOUT ROWID;
CREATE TABLE victory(id INTEGER PRIMARY KEY, date INTEGER NOT NULL, flight INTEGER,
    victor INTEGER NOT NULL, victor_name TEXT NOT NULL, victor_squadron INTEGER NOT NULL,
    victor_aircraft TEXT NOT NULL, victim INTEGER, victim_name TEXT NOT NULL,
    victim_squadron INTEGER, victim_aircraft TEXT NOT NULL, died INTEGER NOT NULL);
CREATE TABLE posting(id INTEGER PRIMARY KEY, date INTEGER NOT NULL, kind TEXT NOT NULL,
    cause TEXT NOT NULL, pilot INTEGER NOT NULL, name TEXT NOT NULL, squadron INTEGER NOT NULL,
    from_squadron INTEGER, other INTEGER, other_name TEXT);
CREATE TABLE base(id INTEGER PRIMARY KEY, date INTEGER NOT NULL, squadron INTEGER NOT NULL,
    name TEXT NOT NULL, on_channel_map INTEGER NOT NULL, x REAL NOT NULL, z REAL NOT NULL);
CREATE TABLE orders(id INTEGER PRIMARY KEY CHECK(id = 1), career INTEGER NOT NULL,
    date INTEGER NOT NULL, file TEXT NOT NULL, size INTEGER NOT NULL, hash TEXT NOT NULL,
    flyable INTEGER NOT NULL);
CREATE TABLE orders_plane(place INTEGER PRIMARY KEY, pilot INTEGER NOT NULL, name TEXT NOT NULL,
    nation INTEGER NOT NULL, skill INTEGER NOT NULL, victories INTEGER NOT NULL,
    missions INTEGER NOT NULL, squadron INTEGER NOT NULL, pilot_file INTEGER,
    aircraft TEXT NOT NULL);
CREATE TABLE orders_log(name TEXT PRIMARY KEY, pieces INTEGER NOT NULL, bytes INTEGER NOT NULL)
    WITHOUT ROWID;
)",
    // Nothing had written the orders yet.
    R"(
DROP TABLE orders;
DROP TABLE orders_plane;
DROP TABLE orders_log;
CREATE TABLE orders(date INTEGER PRIMARY KEY, file TEXT NOT NULL, size INTEGER NOT NULL,
    hash TEXT NOT NULL, flyable INTEGER NOT NULL, x REAL NOT NULL, z REAL NOT NULL, log TEXT);
CREATE TABLE orders_plane(date INTEGER, place INTEGER, pilot INTEGER NOT NULL, name TEXT NOT NULL,
    nation INTEGER NOT NULL, skill INTEGER NOT NULL, victories INTEGER NOT NULL,
    missions INTEGER NOT NULL, squadron INTEGER NOT NULL, pilot_file INTEGER,
    aircraft TEXT NOT NULL, PRIMARY KEY(date, place)) WITHOUT ROWID;
CREATE TABLE orders_log(name TEXT PRIMARY KEY, since INTEGER NOT NULL) WITHOUT ROWID;
)",
    // Indices of only those rows that concern the player, among the tens of thousands of a war:
    // indices of all rows would cost each save a tenth more.
    R"(
CREATE INDEX victory_flight ON victory(flight) WHERE flight IS NOT NULL;
CREATE INDEX posting_moved ON posting(pilot) WHERE kind IN ('transferred', 'succeeded');
)",
    // Earlier orders have no folder.
    "ALTER TABLE orders ADD COLUMN folder TEXT",
};
const int32_t RecordVersion = static_cast<int32_t>(std::size(RecordSteps));

bool migrateRecord(SqliteFile& file, const char* const* steps, int32_t count) {
    auto version = static_cast<int32_t>(file.number("PRAGMA user_version"));
    if (version < 0)
        return false;
    for (; version < count && !file.failed(); ++version) {
        const std::string reached =
            "PRAGMA application_id = 0; PRAGMA user_version = " + std::to_string(version + 1);
        if (!file.begin() || !file.run(steps[version]) || !file.run(reached.c_str()) ||
            !file.commit())
            return false;
    }
    return !file.failed();
}

const char* kindName(PostingKind kind) {
    constexpr const char* Names[] = {"joined", "transferred", "died", "succeeded"};
    static_assert(std::size(Names) == static_cast<size_t>(PostingKind::Succeeded) + 1);
    return Names[static_cast<size_t>(kind)];
}

const char* causeName(PostingCause cause) {
    constexpr const char* Names[] = {"start",    "history",   "replacement", "invitation",
                                     "exchange", "shot down", "own side",    "crash"};
    static_assert(std::size(Names) == static_cast<size_t>(PostingCause::Crash) + 1);
    return Names[static_cast<size_t>(cause)];
}

const char* kindName(FlightEventKind kind) {
    constexpr const char* Names[] = {"hit",   "damage",   "wound",   "kill",    "crash",
                                     "death", "take-off", "landing", "position"};
    static_assert(std::size(Names) == static_cast<size_t>(FlightEventKind::Position) + 1);
    return Names[static_cast<size_t>(kind)];
}
