#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/core/String.h"

/// A table of comma-separated values, read row by row. A field in double quotes may hold commas and
/// doubled quotes. Texts are in the program's code page, and may be UTF-8 in the file.
class CsvFile {
public:
    /// header: the first line that the file must have; a name that ends in `*` matches any
    /// number of columns with that beginning, even none. On error: a file with another header, or a
    /// missing one unless mayBeMissing, is logged and has no rows.
    CsvFile(const zel::String& name, std::string_view header, bool mayBeMissing = false);

    /// Names of the file's columns; empty without rows.
    const std::vector<std::string>& header() const { return names; }
    /// Goes to the next row; false at the end. A row with more or fewer fields than the header is
    /// logged and left out.
    bool next();
    /// A field of the present row, from 0. REQUIRES: the header has as many.
    const std::string& text(size_t field) const { return fields[field]; }
    /// The same as a number, 0 for an empty field; logs one that isn't all digits, and returns 0.
    int32_t number(size_t field) const;
    /// The same as a date; logs a field that isn't a date, and returns 0.
    int32_t date(size_t field) const;
    /// Logs what is wrong with the present row.
    void logRow(const zel::String& what) const;

private:
    bool split(std::string_view row);

    zel::String name;
    std::string content;
    size_t place = 0;               // in the content, where the next line begins
    int32_t line = 0;               // of the present row, as an editor counts
    std::vector<std::string> names; // of the columns
    std::vector<std::string> fields;
};
