#include "app/record/RecordExport.h"

#include <nlohmann/json.hpp>

#include "app/record/Sqlite.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* ExportedTables[] = {
    "meta",          "page",         "gap",     "squadron", "flight", "flight_plane",
    "flight_report", "flight_event", "victory", "posting",  "base"};

Json valueAt(const SqliteStatement& row, int column) {
    if (row.isNull(column))
        return nullptr;
    if (row.isText(column))
        return row.rawText(column);
    if (row.isReal(column))
        return row.real(column);
    return row.number(column);
}

Json rowOf(const SqliteStatement& row) {
    Json object = Json::object();
    for (int column = 0; column < row.columnCount(); ++column)
        object[row.columnName(column)] = valueAt(row, column);
    return object;
}

} // namespace

// Row by row: a whole war as one tree would take hundreds of megabytes.
std::string recordAsJson(SqliteFile& record) {
    std::string text = "{";
    const char* separator = "\n";
    for (const char* table : ExportedTables) {
        text += separator + Json(table).dump() + ": [";
        separator = ",\n";
        const char* comma = "\n";
        SqliteStatement row(record, std::string("SELECT * FROM ") + table + " ORDER BY 1, 2");
        for (; row.next(); comma = ",\n")
            text += comma + rowOf(row).dump(-1, ' ', false, Json::error_handler_t::replace);
        text += "]";
    }
    return record.failed() ? std::string() : text + "\n}\n";
}
