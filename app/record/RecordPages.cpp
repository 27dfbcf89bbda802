#include "app/record/RecordPages.h"

#include <cstring>
#include <limits>
#include <string>

#include "app/career/Checksum.h"
#include "app/career/Database.h"
#include "app/career/SaveFormat.h"
#include "app/record/RecordSchema.h"
#include "app/record/RecordWriter.h"
#include "app/record/Sqlite.h"
#include "engine/core/System.h"

namespace {

/// The first posting that doesn't fit the career; one past the last if all of them do.
int64_t firstWrongPosting(SqliteFile& file, const Database& career) {
    SqliteStatement row(file, "SELECT id, kind, pilot, name FROM posting"
                              " WHERE kind IN ('died', 'joined') ORDER BY id");
    while (row.next()) {
        const int32_t index = row.integer(2);
        if (!career.isPilot(index))
            return row.number(0);
        const Pilot& pilot = career.pilot(index);
        const bool fits =
            row.rawText(1) == "died" ? pilot.alive == 0 : row.text(3) == zel::arrayText(pilot.name);
        if (!fits)
            return row.number(0);
    }
    return std::numeric_limits<int64_t>::max();
}

/// The same for the first victory.
int64_t firstWrongVictory(SqliteFile& file, const Database& career) {
    std::vector<int32_t> counts(career.pilots.size(), 0);
    SqliteStatement row(file, "SELECT id, victor FROM victory ORDER BY id");
    while (row.next()) {
        const int32_t victor = row.integer(1);
        if (!career.isPilot(victor) || ++counts[victor] > career.pilot(victor).shotdowns)
            return row.number(0);
    }
    return std::numeric_limits<int64_t>::max();
}

} // namespace

SaveMatch matchPage(SqliteFile& file, const CheckedBytes& content, int32_t& careerNumber) {
    const auto hasPageOf = [&](const zel::String& checksum) {
        SqliteStatement known(file, "SELECT 1 FROM page WHERE checksum = ?");
        return known.with(checksum).next();
    };
    if (hasPageOf(content.checksum()))
        return SaveMatch::Whole;
    const auto career = static_cast<int32_t>(
        file.number("SELECT coalesce(max(value), -1) FROM meta WHERE key = 'career'"));
    const bool hasPages = file.number("SELECT count(*) FROM page") > 0;
    if (file.failed() || !hasPages)
        return SaveMatch::Unknown;
    if (career == careerNumber)
        return SaveMatch::Changed;
    std::string corrected(content.bytes());
    std::memcpy(&corrected[CareerNumberOffset], &career, sizeof career);
    if (!hasPageOf(checksumOf(corrected)))
        return SaveMatch::Unknown; // another career
    careerNumber = career;
    return SaveMatch::Changed;
}

SaveMatch matchRecord(const zel::String& path, bool isReadOnly, const CheckedBytes& content,
                      int32_t& careerNumber) {
    SqliteFile file;
    const bool isKnown =
        zel::system::fileStatus(path).exists &&
        file.open(path, isReadOnly ? SqliteFile::ReadOnly : SqliteFile::MustExist) &&
        file.number("PRAGMA user_version") <= RecordVersion;
    return isKnown ? matchPage(file, content, careerNumber) : SaveMatch::Unknown;
}

PageMark addPage(SqliteFile& file, const SavedPage& save) {
    SqliteStatement(file,
                    "INSERT INTO page(date,checksum,flight,victory,posting,base,gap) SELECT ?,?,"
                    "(SELECT coalesce(max(number),0) FROM flight),"
                    "(SELECT coalesce(max(id),0) FROM victory),"
                    "(SELECT coalesce(max(id),0) FROM posting),"
                    "(SELECT coalesce(max(id),0) FROM base),"
                    "(SELECT coalesce(max(id),0) FROM gap)")
        .insert(save.date, save.checksum);
    writeMeta(file, "save", save.checksum);
    return {file.failed() ? 0 : file.lastRow(), true, save.checksum, save.date};
}

PageMark findPage(SqliteFile& file, const SavedPage& save, const Database& career) {
    {
        SqliteStatement own(file, "SELECT max(id) FROM page WHERE checksum = ?");
        if (own.with(save.checksum).next() && !own.isNull(0))
            return {own.number(0), true, save.checksum, save.date};
    }
    const int64_t posting = firstWrongPosting(file, career);
    const int64_t victory = firstWrongVictory(file, career);
    SqliteStatement earlier(file,
                            "SELECT id, checksum, date FROM page WHERE date <= ? AND posting < ?"
                            " AND victory < ? ORDER BY id DESC LIMIT 1");
    if (earlier.with(save.date, posting, victory).next())
        return {earlier.number(0), false, earlier.text(1), earlier.integer(2)};
    return {};
}

bool hasPage(SqliteFile& file, const PageMark& mark) {
    if (mark.id == 0)
        return true; // it needs no page
    SqliteStatement page(file, "SELECT 1 FROM page WHERE id = ? AND checksum = ?");
    return page.with(mark.id, mark.checksum).next();
}

bool endsWith(SqliteFile& file, const PageMark& mark) {
    return hasPage(file, mark) && file.number("SELECT max(id) FROM page") == mark.id;
}

bool hasFlight(SqliteFile& file, const PageMark& mark, const zel::String& log,
               const zel::String& hash) {
    SqliteStatement row(file, "SELECT 1 FROM flight WHERE log = ? AND log_hash = ?"
                              " AND number <= (SELECT flight FROM page WHERE id = ?)");
    return row.with(log, hash, mark.id).next();
}

std::vector<RecordGap> gapsUpTo(SqliteFile& file, const PageMark& mark) {
    std::vector<RecordGap> gaps;
    SqliteStatement gap(file, "SELECT since, until FROM gap WHERE id <="
                              " (SELECT gap FROM page WHERE id = ?) ORDER BY id");
    for (gap.with(mark.id); gap.next();)
        gaps.push_back({gap.integer(0), gap.integer(1)});
    return gaps;
}

void cutRecord(SqliteFile& file, const PageMark& mark) {
    struct CutTable {
        const char *name, *key, *mark;
    };
    constexpr CutTable Tables[] = {
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
    for (const CutTable& table : Tables) {
        const std::string sql = std::string("DELETE FROM ") + table.name + " WHERE " + table.key +
                                " > coalesce((SELECT " + table.mark +
                                " FROM page WHERE id = ?), 0)";
        SqliteStatement(file, sql).insert(mark.id);
    }
    writeMeta(file, "save", mark.checksum);
}
