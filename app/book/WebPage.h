#pragma once

#include <string>

#include "engine/core/String.h"

class BookTables;
class Database;
class SqliteFile;

/// The log book as one self-contained web page without scripts: UTF-8, in the language in use. The
/// template is Data\Book\logbook.html.
struct WebPage {
    std::string html;    // empty if there is no flight, or on error
    zel::String problem; // why, in English; empty if there is none
    zel::String reason;  // the same as a short sentence in the language in use
};
WebPage webPageOf(SqliteFile& record, const Database& career, const BookTables& tables);
