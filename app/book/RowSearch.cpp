#include "app/book/RowSearch.h"

#include "app/career/Database.h"
#include "app/career/GroundObjects.h"
#include "app/record/Sqlite.h"

namespace {

/// Binary search: the lowest key from which the next row's number is at least `least`; last + 1 if
/// there is none. rowFrom gives the first row from a key on, as its key and its number.
int64_t search(SqliteStatement& rowFrom, int64_t last, int32_t least) {
    int64_t low = 1;
    int64_t high = last + 1;
    while (low < high) {
        const int64_t middle = low + (high - low) / 2;
        rowFrom.with(middle);
        if (!rowFrom.next() || rowFrom.number(1) >= least)
            high = middle;
        else
            low = rowFrom.number(0) + 1;
    }
    return low;
}

} // namespace

int64_t firstRowFrom(SqliteFile& record, DatedTable table, int32_t date) {
    const bool isVictory = table == DatedTable::Victory;
    SqliteStatement row(
        record, isVictory ? "SELECT id, date FROM victory WHERE id >= ? ORDER BY id LIMIT 1"
                          : "SELECT id, date FROM posting WHERE id >= ? ORDER BY id LIMIT 1");
    return search(
        row,
        record.number(isVictory ? "SELECT max(id) FROM victory" : "SELECT max(id) FROM posting"),
        date);
}

int64_t firstArrivalFrom(SqliteFile& record, int32_t pilot) {
    SqliteStatement row(record, "SELECT id, pilot FROM posting WHERE id >= ? AND kind = 'joined'"
                                " ORDER BY id LIMIT 1");
    const int64_t found = search(row, record.number("SELECT max(id) FROM posting"), pilot);
    row.with(found);
    return row.next() && row.number(1) == pilot ? row.number(0) : 0;
}

zel::String nameOfReport(const Database& career, int32_t pilot, const zel::String& name,
                         const zel::String& type) {
    if (career.isPilot(pilot))
        return zel::arrayText(career.pilot(pilot).name);
    const Wording* const ground = groundObject(type.view());
    return ground != nullptr ? textOf(*ground) : name;
}

std::string lowered(std::string_view text) {
    std::string result(text);
    for (char& character : result) {
        const auto code = static_cast<uint8_t>(character);
        const bool isLatin = code >= 0xC0 && code <= 0xDE && code != 0xD7;
        if ((code >= 'A' && code <= 'Z') || isLatin)
            character = static_cast<char>(code + 0x20);
        else if (code == 0x8A || code == 0x8C || code == 0x8E)
            character = static_cast<char>(code + 0x10);
        else if (code == 0x9F)
            character = static_cast<char>(0xFF);
    }
    return result;
}

std::string folded(std::string_view text) {
    // For the bytes from 0xE0 on; those that aren't letters stay.
    constexpr std::string_view PlainLetters = "aaaaaa\xE6"
                                              "ceeeeiiii\xF0nooooo\xF7ouuuuy\xFEy";
    std::string result = lowered(text);
    for (char& character : result) {
        const auto code = static_cast<uint8_t>(character);
        if (code >= 0xE0)
            character = PlainLetters[code - 0xE0U];
        else if (code == 0x9A)
            character = 's';
        else if (code == 0x9E)
            character = 'z';
    }
    return result;
}
