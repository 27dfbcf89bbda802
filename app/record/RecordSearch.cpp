#include "app/record/RecordSearch.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "app/career/Checksum.h"
#include "app/career/Database.h"
#include "app/record/KeptRecords.h"
#include "app/record/RecordFile.h"
#include "app/record/Sqlite.h"
#include "engine/core/System.h"

namespace {

/// How close a record of the career comes to a save, as a date; above all dates if it holds the
/// save's page; 0 if it is useless.
int64_t worthOf(const zel::String& path, int32_t careerNumber, const SavedPage& save) {
    SqliteFile file;
    file.open(path, SqliteFile::ReadOnly);
    SqliteStatement page(file, "SELECT max(iif(checksum = ?1, 99999999, date)) FROM page WHERE"
                               " (checksum = ?1 OR date <= ?2) AND EXISTS"
                               " (SELECT 1 FROM meta WHERE key = 'career' AND value = ?3)");
    return page.with(save.checksum, save.date, careerNumber).next() ? page.number(0) : 0;
}

/// The records beside that one that may be the career's, best first. They are not checked.
std::vector<zel::String> recordsBeside(const zel::String& path, int32_t careerNumber,
                                       const SavedPage& save) {
    const std::string_view stem = path.view().substr(0, path.view().size() - RecordEnding.size());
    const size_t folderLength = stem.find_last_of("/\\") + 1;
    const std::string start = std::string(stem.substr(folderLength)) + "-";
    std::vector<zel::system::DirectoryEntry> entries;
    zel::system::listDirectory(zel::String(stem.substr(0, folderLength)), entries);
    std::vector<std::pair<int64_t, std::string>> found;
    for (const zel::system::DirectoryEntry& entry : entries) {
        const std::string_view name = entry.name;
        if (entry.isDirectory || name.size() < start.size() + RecordEnding.size() ||
            name.substr(0, start.size()) != start ||
            name.substr(name.size() - RecordEnding.size()) != RecordEnding)
            continue;
        const std::string whole = std::string(stem.substr(0, folderLength)) + entry.name;
        if (const int64_t worth = worthOf(zel::String(whole), careerNumber, save); worth > 0)
            found.emplace_back(worth, whole);
    }
    std::sort(found.rbegin(), found.rend());
    std::vector<zel::String> paths;
    paths.reserve(found.size());
    for (const auto& [worth, name] : found)
        paths.emplace_back(name);
    return paths;
}

} // namespace

bool isKnownElsewhere(const zel::String& path, const CheckedBytes& content, int32_t careerNumber) {
    const SavedPage save = {content.checksum(), 0}; // no page is as early, only its own
    return !recordsBeside(path, careerNumber, save).empty() || isKept(path, save.checksum);
}

SaveMatch matchRecords(const zel::String& path, SqliteFile* open, bool isReadOnly,
                       const CheckedBytes& content, int32_t& careerNumber) {
    const SaveMatch found = open != nullptr ? matchPage(*open, content, careerNumber)
                                            : matchRecord(path, isReadOnly, content, careerNumber);
    const auto isOnDisk = [&] { // what the open transaction has cut off was saved
        return open != nullptr && open->isInTransaction() &&
               matchRecord(path, isReadOnly, content, careerNumber) == SaveMatch::Whole;
    };
    const bool isWhole =
        found == SaveMatch::Whole || isOnDisk() || isKnownElsewhere(path, content, careerNumber);
    return isWhole ? SaveMatch::Whole : found;
}

std::optional<FoundRecord> findRecord(const zel::String& path, const Database& career,
                                      const SavedPage& save, bool onlyOwn) {
    std::optional<FoundRecord> closest;
    for (const zel::String& other : recordsBeside(path, career.careerNumber, save)) {
        SqliteFile file;
        if (openRecord(file, other, career.careerNumber) != RecordState::Ready)
            continue;
        const PageMark mark = findPage(file, save, career);
        if (mark.isOwn)
            return FoundRecord{other, mark};
        if (!closest && !onlyOwn && mark.id > 0)
            closest = {other, mark};
    }
    const zel::String copy = copyKeptRecord(path, save.checksum);
    SqliteFile file;
    if (copy.empty() || openRecord(file, copy, career.careerNumber) != RecordState::Ready)
        return closest;
    return FoundRecord{copy, findPage(file, save, career)};
}
