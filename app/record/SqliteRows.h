#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "engine/core/String.h"

struct sqlite3;

/// A value on its way into SQLite. An empty optional is NULL. Texts aren't copied.
class SqliteValue {
public:
    enum class Kind : uint8_t { Null, Integer, Real, Text };

    // Implicit, so that values are passed as they are.
    SqliteValue() = default;
    SqliteValue(int64_t value) : number(value), sort(Kind::Integer) {}
    SqliteValue(int32_t value) : SqliteValue(int64_t{value}) {}
    SqliteValue(bool value) : SqliteValue(int64_t{value}) {}
    SqliteValue(double value) : fraction(value), sort(Kind::Real) {}
    /// Rounded to three decimals.
    SqliteValue(float value) : SqliteValue(std::round(double{value} * 1000) / 1000) {}
    /// The text is in the program's code page.
    SqliteValue(std::string_view value)
        : characters(value.data()), size(static_cast<uint32_t>(value.size())), sort(Kind::Text) {}
    SqliteValue(const zel::String& value) : SqliteValue(value.view()) {}
    SqliteValue(const char* value) : SqliteValue(std::string_view(value)) {}
    template <typename Value>
    SqliteValue(const std::optional<Value>& value)
        : SqliteValue(value ? SqliteValue(*value) : SqliteValue()) {}

    Kind kind() const { return sort; }
    int64_t integer() const { return number; }
    double real() const { return fraction; }
    std::string_view text() const { return {characters, size}; }

private:
    union {
        int64_t number = 0;
        double fraction;
        const char* characters;
    };
    uint32_t size = 0; // of a text
    Kind sort = Kind::Null;
};

/// The values of one row, from the first column on.
class SqliteRow {
public:
    static constexpr size_t MostColumns = 12;

    template <typename... Values> void set(const Values&... newValues) {
        static_assert(sizeof...(newValues) <= MostColumns);
        size_t column = 0;
        ((values[column++] = newValues), ...);
    }
    const SqliteValue& value(int column) const { return values[column]; }

private:
    std::array<SqliteValue, MostColumns> values;
};

/// Sets the next row; false after the last one.
using SqliteRows = std::function<bool(SqliteRow&)>;

/// Stands for the key of a new row: SQLite chooses one.
constexpr std::optional<int32_t> NewKey;

/// Adds the virtual table to a connection: what a statement reads from it are the rows that `rows`
/// points to at that time. Inserting a save's rows from it takes about half as long as binding and
/// running a statement for each of them. Returns SQLite's result code.
int addRowsTable(sqlite3* connection, const SqliteRows** rows);
/// The statement that inserts those rows into a table with `columns` columns.
std::string insertionOfRows(const char* table, int columns);
