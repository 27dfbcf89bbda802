#pragma once

#include <string>

class SqliteFile;

/// All tables of the record but the orders as one JSON text: an object with an array of rows for
/// each table, whose columns have the names that docs/formats.md gives. UTF-8, a row a line. On
/// error: an empty text, and the file has failed.
std::string recordAsJson(SqliteFile& record);
