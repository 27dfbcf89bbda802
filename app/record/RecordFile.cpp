#include "app/record/RecordFile.h"

#include <string>

#include "app/record/OrdersTable.h"
#include "app/record/RecordSchema.h"
#include "app/record/RecordWriter.h"
#include "app/record/Sqlite.h"
#include "engine/core/System.h"

namespace {

constexpr const char* Companions[] = {"-wal", "-shm", "-journal"}; // SQLite's own, beside the file

// A commit is whole whenever the program is killed, and costs no sync. A file system that can't
// keep the log in shared memory stays with a journal.
bool prepare(SqliteFile& file) {
    return file.run("PRAGMA trusted_schema = OFF; PRAGMA journal_mode = WAL; "
                    "PRAGMA wal_autocheckpoint = 250; PRAGMA synchronous = NORMAL; "
                    "PRAGMA temp_store = MEMORY");
}

bool isWhole(SqliteFile& file) {
    SqliteStatement check(file, "PRAGMA quick_check(1)");
    return check.next() && check.text(0) == "ok";
}

RecordState checkRecord(SqliteFile& file, int32_t careerNumber) {
    // The version first: what a later program writes may look damaged to this one.
    const int64_t version = file.number("PRAGMA user_version");
    if (!file.failed() && version > RecordVersion)
        return RecordState::Newer;
    if (!file.failed() && version < 1) // the number is signed, and 0 only in a file without tables
        return RecordState::Damaged;
    if (file.failed() || !prepare(file))
        return file.isDamaged() ? RecordState::Damaged : RecordState::Unusable;
    if (!isWhole(file))
        return file.failed() && !file.isDamaged() ? RecordState::Unusable : RecordState::Damaged;
    const int64_t career =
        file.number("SELECT coalesce(max(value), -1) FROM meta WHERE key = 'career'");
    if (file.failed())
        return RecordState::Damaged; // there is no such table
    if (career != careerNumber)
        return RecordState::OtherCareer;
    if (migrateRecord(file))
        return RecordState::Ready;
    return file.isDamaged() ? RecordState::Damaged : RecordState::Unusable;
}

const char* reasonName(RecordState why) {
    switch (why) {
    case RecordState::OtherCareer:
        return "-other-career";
    case RecordState::Newer:
        return "-newer";
    default:
        return "-damaged";
    }
}

} // namespace

const char* stateText(RecordState state) {
    switch (state) {
    case RecordState::Damaged:
        return "is damaged";
    case RecordState::OtherCareer:
        return "is of another career";
    case RecordState::Newer:
        return "was written by a later version";
    default:
        return "is missing";
    }
}

RecordState openRecord(SqliteFile& file, const zel::String& path, int32_t careerNumber) {
    if (!zel::system::fileStatus(path).exists)
        return zel::system::isDirectory(path) ? RecordState::Unusable : RecordState::Missing;
    if (!file.open(path, SqliteFile::MustExist))
        return file.isDamaged() ? RecordState::Damaged : RecordState::Unusable;
    return checkRecord(file, careerNumber);
}

bool createRecord(SqliteFile& file, const zel::String& path) {
    // Large pages: a save adds some thousand short rows.
    return file.open(path, SqliteFile::MayCreate) && file.run("PRAGMA page_size = 16384") &&
           prepare(file) && migrateRecord(file);
}

zel::String setRecordAside(const zel::String& path, RecordState why) {
    const std::string_view whole = path;
    const std::string_view ending = ".db";
    const zel::String stem(whole.substr(0, whole.size() - ending.size()));
    zel::String free = stem + reasonName(why) + ending;
    for (int32_t number = 2; zel::system::fileStatus(free).exists; ++number)
        free = stem + reasonName(why) + "-" + number + ending;
    if (!zel::system::replaceFile(path, free))
        return {};
    for (const char* companion : Companions)
        if (zel::system::fileStatus(path + companion).exists)
            zel::system::replaceFile(path + companion, free + companion);
    return free;
}

void addPage(SqliteFile& file, const SavedPage& page) {
    SqliteStatement(file,
                    "INSERT INTO page(date,checksum,flight,victory,posting,base,gap) SELECT ?,?,"
                    "(SELECT coalesce(max(number),0) FROM flight),"
                    "(SELECT coalesce(max(id),0) FROM victory),"
                    "(SELECT coalesce(max(id),0) FROM posting),"
                    "(SELECT coalesce(max(id),0) FROM base),"
                    "(SELECT coalesce(max(id),0) FROM gap)")
        .insert(page.date, page.checksum);
    writeMeta(file, "save", page.checksum);
}

int32_t cutRecord(SqliteFile& file, const SavedPage& page) {
    int64_t id = 0;
    int32_t date = FirstDayOfWar;
    {
        SqliteStatement known(file, "SELECT id, date, checksum = ?1 FROM page WHERE checksum = ?1"
                                    " OR date <= ?2 ORDER BY checksum = ?1 DESC, id DESC LIMIT 1");
        if (known.with(page.checksum, page.date).next()) {
            id = known.number(0);
            date = known.number(2) != 0 ? page.date : known.integer(1);
        }
    }
    struct Table {
        const char *name, *key, *mark;
    };
    constexpr Table Tables[] = {
        {"flight_plane", "flight", "flight"},
        {"flight_report", "flight", "flight"},
        {"flight_event", "flight", "flight"},
        {"flight", "number", "flight"},
        {"victory", "id", "victory"},
        {"posting", "id", "posting"},
        {"base", "id", "base"},
        {"gap", "id", "gap"},
        {"page", "id", "id"},
    };
    for (const Table& table : Tables) {
        const std::string sql = std::string("DELETE FROM ") + table.name + " WHERE " + table.key +
                                " > coalesce((SELECT " + table.mark +
                                " FROM page WHERE id = ?), 0)";
        SqliteStatement(file, sql).insert(id);
    }
    cutOrders(file, page.date);
    return date;
}
