#include "app/record/RecordFile.h"

#include <algorithm>
#include <string>

#include "app/record/RecordSchema.h"
#include "app/record/RecordSeal.h"
#include "app/record/Sqlite.h"
#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"

namespace {

constexpr const char* Companions[] = {"-wal", "-shm", "-journal"};

// A commit is on the disk before the save that it belongs to gets its name. A file system that
// can't keep the log in shared memory stays with a journal.
bool prepare(SqliteFile& file) {
    return file.run("PRAGMA trusted_schema = OFF; PRAGMA journal_mode = WAL; "
                    "PRAGMA wal_autocheckpoint = 250; PRAGMA synchronous = FULL; "
                    "PRAGMA temp_store = MEMORY");
}

/// Whether a finding of the check says that a page could not be read, which isn't damage: the disk
/// may give it later.
bool isReadError(std::string_view finding) {
    constexpr std::string_view Mark = "error code=";
    constexpr int32_t IoError = 10; // SQLITE_IOERR; the higher bytes say which
    const size_t place = finding.find(Mark);
    return place != finding.npos &&
           (zel::toInt(finding.substr(place + Mark.size())) & 0xFF) == IoError;
}

RecordState checkPages(SqliteFile& file) {
    SqliteStatement check(file, "PRAGMA quick_check(1)");
    const zel::String finding = check.next() ? check.text(0) : zel::String();
    if (finding == "ok")
        return RecordState::Ready;
    const bool isUnread = isReadError(finding) || (file.failed() && !file.isDamaged());
    return isUnread ? RecordState::Unusable : RecordState::Damaged;
}

/// A number above 2 would make the file read-only for ever.
bool hasWritableFormat(const zel::String& path) {
    constexpr int32_t WriteVersion = 18; // its place in the head of the file
    char head[WriteVersion + 1] = {};
    zel::File file(path, zel::FileRead);
    return !file.read(head, sizeof head) || (head[WriteVersion] >= 0 && head[WriteVersion] <= 2);
}

RecordState damageOr(const SqliteFile& file, RecordState otherwise) {
    return file.isDamaged() ? RecordState::Damaged : otherwise;
}

/// The file has the tables that this version makes. Other tables do no harm.
bool hasItsTables(SqliteFile& file) {
    const char* const columns =
        "SELECT name, (SELECT group_concat(name || ' ' || type || ' ' || \"notnull\" || pk)"
        " FROM pragma_table_info(tables.name)) FROM sqlite_master AS tables WHERE type = 'table'";
    SqliteFile model;
    createRecordInMemory(model);
    SqliteStatement found(file, std::string(columns) + " AND name = ?");
    for (SqliteStatement wanted(model, columns); wanted.next();)
        if (!found.with(wanted.rawText(0)).next() || found.rawText(1) != wanted.rawText(1))
            return false;
    return !file.failed();
}

RecordState checkRecord(SqliteFile& file, int32_t careerNumber, bool isSealed) {
    // Checks the version first: what a later program writes may look damaged to this one.
    const int64_t version = file.number("PRAGMA user_version");
    if (!file.failed() && version > RecordVersion)
        return RecordState::Newer;
    if (!file.failed() && version < 1) // the number is signed, and 0 only in a file without tables
        return RecordState::Damaged;
    if (file.failed() || !prepare(file))
        return damageOr(file, RecordState::Unusable);
    if (const RecordState pages = isSealed ? RecordState::Ready : checkPages(file);
        pages != RecordState::Ready)
        return pages;
    const int64_t career =
        file.number("SELECT coalesce(max(value), -1) FROM meta WHERE key = 'career'");
    if (!file.failed() && career != careerNumber)
        return RecordState::OtherCareer;
    if (!migrateRecord(file))
        return damageOr(file, RecordState::Unusable);
    if (!hasItsTables(file))
        return file.failed() ? damageOr(file, RecordState::Unusable) : RecordState::Damaged;
    return RecordState::Ready;
}

RecordState openAndCheck(SqliteFile& file, const zel::String& path, int32_t careerNumber,
                         bool isSealed) {
    return file.open(path, SqliteFile::MustExist) ? checkRecord(file, careerNumber, isSealed)
                                                  : damageOr(file, RecordState::Unusable);
}

/// "record-damaged.db", "record-damaged-2.db".
zel::String pathBeside(const zel::String& path, const char* reason, int32_t number) {
    const zel::String stem(path.view().substr(0, path.view().size() - RecordEnding.size()));
    return stem + reason + (number > 1 ? zel::String("-") + number : zel::String()) + RecordEnding;
}

} // namespace

RecordStateTexts recordStateTexts(RecordState state) {
    switch (state) {
    case RecordState::Ready:
        return {"holds another course of the war", "-replaced"};
    case RecordState::OtherCareer:
        return {"is of another career", "-other-career"};
    case RecordState::Newer:
        return {"was written by a later version", "-newer"};
    case RecordState::Damaged:
        return {"is damaged", "-damaged"};
    default:
        return {"is missing", ""};
    }
}

RecordState openRecord(SqliteFile& file, const zel::String& path, int32_t careerNumber) {
    if (!zel::system::fileStatus(path).exists)
        return zel::system::isDirectory(path) ? RecordState::Unusable : RecordState::Missing;
    if (!hasWritableFormat(path))
        return RecordState::Damaged;
    const RecordSeal seal = sealOf(path);
    if (seal == RecordSeal::Broken)
        zel::log(path + " was changed or damaged outside of Wingtally", "Record", zel::LogWarning);
    const RecordState state = openAndCheck(file, path, careerNumber, seal == RecordSeal::Whole);
    if (state != RecordState::Damaged)
        return state;
    // SQLite takes some errors of the disk for damage.
    std::string content;
    return zel::readFileWhole(path, content) == zel::FileFault::None
               ? openAndCheck(file, path, careerNumber, false)
               : RecordState::Unusable;
}

bool isRecordDamaged(const zel::String& path) {
    std::string content;
    if (zel::readFileWhole(path, content) != zel::FileFault::None)
        return false;
    SqliteFile file;
    file.open(path, SqliteFile::MustExist);
    return file.isDamaged() || checkPages(file) == RecordState::Damaged;
}

bool reopenRecord(SqliteFile& file, const zel::String& path) {
    return file.open(path, SqliteFile::MustExist) && prepare(file);
}

RecordState openRecordCopy(SqliteFile& file, const zel::String& path, int32_t careerNumber) {
    return file.openCopy(path) ? checkRecord(file, careerNumber, false)
                               : damageOr(file, RecordState::Unusable);
}

bool createRecord(SqliteFile& file, const zel::String& path) {
    // Large pages: a save adds some thousand short rows.
    return file.open(path, SqliteFile::MayCreate) && file.run("PRAGMA page_size = 16384") &&
           prepare(file) && migrateRecord(file);
}

bool createRecordInMemory(SqliteFile& file) { return file.openInMemory() && migrateRecord(file); }

zel::String freeRecordPath(const zel::String& path, const char* reason) {
    int32_t number = 1;
    while (zel::system::fileStatus(pathBeside(path, reason, number)).exists)
        ++number;
    return pathBeside(path, reason, number);
}

bool moveRecord(const zel::String& from, const zel::String& to) {
    if (!zel::system::replaceFile(from, to))
        return false;
    for (const char* companion : Companions)
        if (zel::system::fileStatus(from + companion).exists)
            zel::system::replaceFile(from + companion, to + companion);
    return true;
}

void removeRecord(const zel::String& path) {
    for (const char* companion : Companions)
        zel::system::removeFile(path + companion);
    zel::system::removeFile(path);
}

void removeRecordDrafts(const zel::String& path) {
    zel::String draft;
    for (int32_t number = 1;
         zel::system::fileStatus(draft = pathBeside(path, RecordDraft, number)).exists; ++number)
        removeRecord(draft);
}

bool hasCompanions(const zel::String& path) {
    return std::any_of(std::begin(Companions), std::end(Companions), [&](const char* companion) {
        return zel::system::fileStatus(path + companion).exists;
    });
}
