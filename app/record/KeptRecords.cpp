#include "app/record/KeptRecords.h"

#include <algorithm>
#include <string>
#include <vector>

#include "app/career/Checksum.h"
#include "app/career/SavePages.h"
#include "app/career/Wording.h"
#include "app/record/ShelfFolders.h"
#include "app/record/Sqlite.h"
#include "engine/core/File.h"
#include "engine/core/System.h"
#include "engine/core/SystemFiles.h"
#include "engine/core/WholeFile.h"

namespace {

enum class Join { Done, Damaged, InUse };

/// Merges SQLite's write-ahead log into the file, so that a copy of the file alone is the whole
/// record.
Join joinLog(const zel::String& record) {
    SqliteFile file;
    file.open(record, SqliteFile::MustExist);
    const bool isBusy = file.number("PRAGMA wal_checkpoint(TRUNCATE)") != 0;
    if (file.isDamaged())
        return Join::Damaged;
    return isBusy || file.failed() ? Join::InUse : Join::Done;
}

zel::FileFault copyRecord(const zel::String& from, const zel::String& to) {
    std::string content;
    const zel::FileFault fault = zel::readFileWhole(from, content);
    return fault == zel::FileFault::None ? zel::writeFileWhole(to, content) : fault;
}

/// Whether the record has a page with the checksum of that save.
bool knowsSave(const zel::String& record, const zel::String& checksum) {
    SqliteFile file;
    file.open(record, SqliteFile::ReadOnly);
    SqliteStatement page(file, "SELECT 1 FROM page WHERE checksum = ?");
    return page.with(checksum).next();
}

/// The checksum of the last save that the record knows; empty if it knows none. On error: false.
bool lastSaveIn(const zel::String& record, zel::String& checksum) {
    SqliteFile file;
    file.open(record, SqliteFile::ReadOnly);
    SqliteStatement last(file, "SELECT checksum FROM page ORDER BY id DESC LIMIT 1");
    checksum = last.next() ? last.text(0) : zel::String();
    return !file.failed();
}

} // namespace

bool keepRecord(const zel::String& folder, Problem& problem) {
    const zel::String record = recordIn(folder);
    if (!zel::system::fileStatus(record).exists)
        return true;
    const zel::String save = saveIn(folder);
    zel::String checksum = checksumOfFile(save);
    const auto fail = [&](zel::FileFault fault) {
        problem = Problem(wording::RecordNotKept, {keptRecordOf(save, checksum)}, fault);
        return false;
    };
    const Join joined = joinLog(record);
    if (joined == Join::Damaged) // it is set aside when the career is loaded
        return true;
    if (joined == Join::InUse)
        return fail(zel::FileFault::Held);
    if (checksum.empty() && !lastSaveIn(record, checksum)) // no save, or one that can't be read
        return fail(zel::FileFault::DiskError);
    if (checksum.empty())
        return true; // nothing in it was ever saved
    if (!makeFolder(folder + "/" + PagesFolder, problem))
        return false;
    const zel::FileFault fault = copyRecord(record, keptRecordOf(save, checksum));
    return fault == zel::FileFault::None || fail(fault);
}

bool isKept(const zel::String& record, const zel::String& checksum) {
    const std::vector<zel::String> kept = keptRecords(record);
    return std::any_of(kept.begin(), kept.end(),
                       [&](const zel::String& path) { return knowsSave(path, checksum); });
}

zel::String copyKeptRecord(const zel::String& record, const zel::String& checksum) {
    for (const zel::String& kept : keptRecords(record)) {
        zel::String copy = freeRecordPath(record, RecordDraft);
        if (knowsSave(kept, checksum) && copyRecord(kept, copy) == zel::FileFault::None)
            return copy;
    }
    return {};
}

bool keepReplaced(const zel::String& record) {
    zel::String checksum;
    if (!lastSaveIn(record, checksum) || checksum.empty())
        return false;
    const zel::String kept = keptRecordOf(record, checksum);
    return zel::system::fileStatus(kept).exists && moveRecord(record, kept);
}
