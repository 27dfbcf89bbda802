#include "app/record/SqliteRows.h"

#include <new>
#include <sqlite3.h>

#include "app/record/SqliteText.h"

namespace {

constexpr const char* TableName = "rows_to_insert";

struct RowsTable : sqlite3_vtab {
    const SqliteRows** rows = nullptr;
};

struct Cursor : sqlite3_vtab_cursor {
    bool isAtEnd = false;
    sqlite3_int64 number = 0;
    SqliteRow row;
};

std::string columnName(size_t column) { return "c" + std::to_string(column); }

int connectTable(sqlite3* connection, void* rows, int /*count*/, const char* const* /*arguments*/,
                 sqlite3_vtab** made, char** /*problem*/) {
    std::string columns;
    for (size_t column = 0; column < SqliteRow::MostColumns; ++column)
        columns.append(columns.empty() ? "" : ",").append(columnName(column));
    const int result =
        sqlite3_declare_vtab(connection, ("CREATE TABLE x(" + columns + ")").c_str());
    auto* const table = new (std::nothrow) RowsTable;
    if (table == nullptr || result != SQLITE_OK) {
        delete table;
        return table == nullptr ? SQLITE_NOMEM : result;
    }
    table->rows = static_cast<const SqliteRows**>(rows);
    *made = table;
    return SQLITE_OK;
}

int disconnectTable(sqlite3_vtab* table) {
    delete static_cast<RowsTable*>(table);
    return SQLITE_OK;
}

int planReading(sqlite3_vtab* /*table*/, sqlite3_index_info* /*plan*/) { return SQLITE_OK; }

int openCursor(sqlite3_vtab* /*table*/, sqlite3_vtab_cursor** opened) {
    *opened = new (std::nothrow) Cursor;
    return *opened != nullptr ? SQLITE_OK : SQLITE_NOMEM;
}

int closeCursor(sqlite3_vtab_cursor* cursor) {
    delete static_cast<Cursor*>(cursor);
    return SQLITE_OK;
}

int nextRow(sqlite3_vtab_cursor* base) {
    auto* const cursor = static_cast<Cursor*>(base);
    const SqliteRows* const rows = *static_cast<RowsTable*>(base->pVtab)->rows;
    cursor->isAtEnd = rows == nullptr || !(*rows)(cursor->row);
    ++cursor->number;
    return SQLITE_OK;
}

int firstRow(sqlite3_vtab_cursor* cursor, int /*plan*/, const char* /*name*/, int /*count*/,
             sqlite3_value** /*arguments*/) {
    return nextRow(cursor);
}

int isAtEnd(sqlite3_vtab_cursor* cursor) { return int{static_cast<Cursor*>(cursor)->isAtEnd}; }

int readColumn(sqlite3_vtab_cursor* cursor, sqlite3_context* result, int column) {
    const SqliteValue& value = static_cast<Cursor*>(cursor)->row.value(column);
    switch (value.kind()) {
    case SqliteValue::Kind::Null:
        break;
    case SqliteValue::Kind::Integer:
        sqlite3_result_int64(result, value.integer());
        break;
    case SqliteValue::Kind::Real:
        sqlite3_result_double(result, value.real());
        break;
    case SqliteValue::Kind::Text:
        passText(value.text(), [&](const char* text, int size, sqlite3_destructor_type lifetime) {
            sqlite3_result_text(result, text, size, lifetime);
        });
    }
    return SQLITE_OK;
}

int readKey(sqlite3_vtab_cursor* cursor, sqlite3_int64* key) {
    *key = static_cast<Cursor*>(cursor)->number;
    return SQLITE_OK;
}

sqlite3_module moduleOfRows() {
    sqlite3_module module = {}; // without xCreate: each connection has it, and no file names it
    module.xConnect = connectTable;
    module.xDisconnect = disconnectTable;
    module.xBestIndex = planReading;
    module.xOpen = openCursor;
    module.xClose = closeCursor;
    module.xFilter = firstRow;
    module.xNext = nextRow;
    module.xEof = isAtEnd;
    module.xColumn = readColumn;
    module.xRowid = readKey;
    return module;
}

} // namespace

int addRowsTable(sqlite3* connection, const SqliteRows** rows) {
    static const sqlite3_module module = moduleOfRows();
    return sqlite3_create_module(connection, TableName, &module, static_cast<void*>(rows));
}

std::string insertionOfRows(const char* table, int columns) {
    std::string list;
    for (int column = 0; column < columns; ++column)
        list.append(list.empty() ? "" : ",").append(columnName(static_cast<size_t>(column)));
    return std::string("INSERT INTO ") + table + " SELECT " + list + " FROM " + TableName;
}
