#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "app/record/SqliteRows.h"
#include "engine/core/String.h"

struct sqlite3;
struct sqlite3_stmt;

/// An open SQLite database, for one thread of the program alone. The first error stays: after it
/// every operation does nothing and gives nothing, so that a piece of work is checked once at its
/// end.
class SqliteFile {
public:
    enum Mode { MayCreate, MustExist, ReadOnly };

    SqliteFile() = default;
    ~SqliteFile();
    SqliteFile(const SqliteFile&) = delete;
    SqliteFile& operator=(const SqliteFile&) = delete;

    /// Opens the file of that path. On error: false and failed().
    bool open(const zel::String& path, Mode mode);
    /// Opens an empty database that lives in memory.
    bool openInMemory();
    /// Opens a copy in memory of the file of that path, which is only read. On error: false, and
    /// the reason.
    bool openCopy(const zel::String& path);
    /// Closes it, and forgets the error. An open transaction is rolled back.
    void close();
    bool isOpen() const { return handle != nullptr; }

    /// Runs statements that give no rows.
    bool run(const char* sql);
    /// The first column of the first row as a number; 0 without a row.
    int64_t number(const char* sql);
    bool begin();
    /// On error the transaction is rolled back.
    bool commit();
    /// Works after an error too, and forgets it.
    void rollback();
    bool isInTransaction() const;
    /// The key of the last row that was inserted.
    int64_t lastRow() const;
    /// Inserts rows of `columns` values, one for each column of the table. On error: none of them.
    void insertAll(const char* table, int columns, const SqliteRows& rows);

    bool failed() const { return code != 0; }
    /// The error is in the file's content and will recur: the file isn't a database, its pages
    /// contradict one another, or tables or columns are missing.
    bool isDamaged() const;
    /// What went wrong, for a log line: "database or disk is full"; empty without an error.
    const zel::String& problem() const { return message; }

private:
    friend class SqliteStatement;
    bool openAs(const char* name, int flags);
    bool check(int result);

    sqlite3* handle = nullptr;
    std::unordered_map<std::string, sqlite3_stmt*> idle; // prepared, by their text
    const SqliteRows* rowsToInsert = nullptr;            // during insertAll()
    int code = 0;                                        // of the first error
    zel::String message;
};

/// A prepared statement, which the file keeps for the next one of the same text. REQUIRES: it ends
/// before the file is closed. Texts are in the program's code page and UTF-8 in the file.
class SqliteStatement {
public:
    SqliteStatement(SqliteFile& file, std::string_view sql);
    ~SqliteStatement();
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;

    /// Binds the values to the marks in turn and restarts it. An empty optional is NULL. Texts must
    /// stay as they are until the rows have been read.
    template <typename... Values> SqliteStatement& with(const Values&... values) {
        restart();
        int place = 0;
        (bind(++place, values), ...);
        return *this;
    }
    /// The same, and runs a statement that gives no rows.
    template <typename... Values> void insert(const Values&... values) {
        with(values...);
        next();
    }
    /// Goes to the next row; false at the end.
    bool next();

    // Columns of the present row, from 0. NULL is 0, an empty text, or -1 as an index.
    int64_t number(int column) const;
    int32_t integer(int column) const { return static_cast<int32_t>(number(column)); }
    int32_t index(int column) const { return isNull(column) ? -1 : integer(column); }
    double real(int column) const;
    zel::String text(int column) const;
    bool isNull(int column) const;
    int columnCount() const;
    const char* columnName(int column) const;
    /// The text as it is in the file, in UTF-8.
    std::string_view rawText(int column) const;
    bool isText(int column) const;
    bool isReal(int column) const;

private:
    void restart();
    void bind(int place, const SqliteValue& value);

    SqliteFile& file;
    std::string sql;
    sqlite3_stmt* handle = nullptr;
};

/// NULL for a negative index.
inline std::optional<int32_t> orNull(int32_t index) {
    return index >= 0 ? std::optional<int32_t>(index) : std::nullopt;
}
/// NULL for an empty text.
inline std::optional<std::string_view> orNull(const zel::String& text) {
    return text.empty() ? std::nullopt : std::optional<std::string_view>(text.view());
}
