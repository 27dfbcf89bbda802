#include "app/record/Sqlite.h"

#include <sqlite3.h>
#include <utility>

#include "app/record/SqliteText.h"
#include "engine/core/System.h"

namespace {

// A player may be reading the file with a tool of his own.
constexpr int PatienceMilliseconds = 500;

/// A file that nobody has open is read as it is, without locks and companions beside it: then it
/// can also be on a disk that is read-only.
std::string readOnlyUri(const zel::String& path) {
    std::string uri = "file:";
    const std::string plain = zel::system::pathInUtf8(path);
    const bool hasDrive = plain.empty() || plain[0] != '/';
    if (hasDrive)
        uri += plain.substr(0, 2) == "\\\\" ? "//" : "/"; // a server's name comes after four
    for (const char character : plain) {
        if (hasDrive && character == '\\')
            uri += '/';
        else if (character == '%' || character == '?' || character == '#')
            uri += character == '%' ? "%25" : character == '?' ? "%3F" : "%23";
        else
            uri += character;
    }
    const auto has = [&](const char* ending) {
        return zel::system::fileStatus(path + ending).exists;
    };
    return uri + (has("-wal") || has("-journal") ? "?mode=ro" : "?mode=ro&immutable=1");
}

/// Once, before the first use: one thread needs no locks, and nobody asks for the memory in use.
void setUp() {
    static const bool isDone = [] {
        sqlite3_config(SQLITE_CONFIG_SINGLETHREAD);
        sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
        return true;
    }();
    static_cast<void>(isDone);
}

} // namespace

SqliteFile::~SqliteFile() { close(); }

bool SqliteFile::open(const zel::String& path, Mode mode) {
    if (mode == ReadOnly)
        return openAs(readOnlyUri(path).c_str(), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
    const int creation = mode == MayCreate ? SQLITE_OPEN_CREATE : 0;
    return openAs(zel::system::pathInUtf8(path).c_str(), SQLITE_OPEN_READWRITE | creation);
}

bool SqliteFile::openInMemory() { return openAs(":memory:", SQLITE_OPEN_READWRITE); }

bool SqliteFile::openCopy(const zel::String& path) {
    SqliteFile source;
    source.open(path, ReadOnly);
    if (!source.failed() && openInMemory()) {
        sqlite3_backup* const backup = sqlite3_backup_init(handle, "main", source.handle, "main");
        if (backup != nullptr)
            sqlite3_backup_step(backup, -1);
        return check(backup != nullptr ? sqlite3_backup_finish(backup) : sqlite3_errcode(handle));
    }
    close();
    code = source.code;
    message = source.message;
    return false;
}

bool SqliteFile::openAs(const char* name, int flags) {
    setUp();
    close();
    const int result = sqlite3_open_v2(
        name, &handle, flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    if (handle == nullptr || !check(result))
        return check(result);
    sqlite3_busy_timeout(handle, PatienceMilliseconds);
    return check(addRowsTable(handle, &rowsToInsert));
}

void SqliteFile::close() {
    for (const auto& [sql, statement] : idle)
        sqlite3_finalize(statement);
    idle.clear();
    sqlite3_close_v2(handle); // null does nothing
    handle = nullptr;
    code = SQLITE_OK;
    message = "";
}

bool SqliteFile::check(int result) {
    if (result == SQLITE_OK || result == SQLITE_ROW || result == SQLITE_DONE)
        return !failed();
    if (!failed()) {
        code = result;
        message = zel::String(handle != nullptr ? sqlite3_errmsg(handle) : sqlite3_errstr(result));
    }
    return false;
}

bool SqliteFile::run(const char* sql) {
    return !failed() && check(sqlite3_exec(handle, sql, nullptr, nullptr, nullptr));
}

int64_t SqliteFile::number(const char* sql) {
    SqliteStatement statement(*this, sql);
    return statement.next() ? statement.number(0) : 0;
}

bool SqliteFile::begin() { return run("BEGIN IMMEDIATE"); }

bool SqliteFile::commit() {
    const bool done = run("COMMIT");
    if (!done && isInTransaction())
        sqlite3_exec(handle, "ROLLBACK", nullptr, nullptr, nullptr);
    return done;
}

void SqliteFile::rollback() {
    if (isInTransaction())
        sqlite3_exec(handle, "ROLLBACK", nullptr, nullptr, nullptr);
    code = SQLITE_OK;
    message = "";
}

bool SqliteFile::isInTransaction() const {
    return handle != nullptr && sqlite3_get_autocommit(handle) == 0;
}

int64_t SqliteFile::lastRow() const { return sqlite3_last_insert_rowid(handle); }

void SqliteFile::insertAll(const char* table, int columns, const SqliteRows& rows) {
    rowsToInsert = &rows;
    SqliteStatement(*this, insertionOfRows(table, columns)).next();
    rowsToInsert = nullptr;
}

bool SqliteFile::isDamaged() const {
    switch (code & 0xFF) {
    case SQLITE_OK:
    case SQLITE_PERM:
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_NOMEM:
    case SQLITE_READONLY:
    case SQLITE_INTERRUPT:
    case SQLITE_IOERR:
    case SQLITE_FULL:
    case SQLITE_CANTOPEN:
    case SQLITE_PROTOCOL:
    case SQLITE_NOLFS:
    case SQLITE_AUTH:
        return false;
    default:
        return true;
    }
}

SqliteStatement::SqliteStatement(SqliteFile& file, std::string_view sql) : file(file), sql(sql) {
    if (file.failed() || !file.isOpen())
        return;
    const auto kept = file.idle.find(this->sql);
    if (kept != file.idle.end()) {
        handle = kept->second;
        file.idle.erase(kept);
        return;
    }
    file.check(sqlite3_prepare_v3(file.handle, sql.data(), static_cast<int>(sql.size()),
                                  SQLITE_PREPARE_PERSISTENT, &handle, nullptr));
}

SqliteStatement::~SqliteStatement() {
    if (handle == nullptr)
        return;
    restart(); // ends its reading
    sqlite3_clear_bindings(handle);
    if (!file.idle.emplace(std::move(sql), handle).second)
        sqlite3_finalize(handle); // two of the same text were in use at once
}

void SqliteStatement::restart() {
    if (handle != nullptr)
        sqlite3_reset(handle); // an error of the last run is known already
}

bool SqliteStatement::next() {
    if (handle == nullptr || file.failed())
        return false;
    const int result = sqlite3_step(handle);
    if (result == SQLITE_ROW)
        return true;
    if (file.check(result))
        restart();
    return false;
}

void SqliteStatement::bind(int place, const SqliteValue& value) {
    if (handle == nullptr)
        return;
    switch (value.kind()) {
    case SqliteValue::Kind::Null:
        file.check(sqlite3_bind_null(handle, place));
        break;
    case SqliteValue::Kind::Integer:
        file.check(sqlite3_bind_int64(handle, place, value.integer()));
        break;
    case SqliteValue::Kind::Real:
        file.check(sqlite3_bind_double(handle, place, value.real()));
        break;
    case SqliteValue::Kind::Text:
        passText(value.text(), [&](const char* text, int size, sqlite3_destructor_type lifetime) {
            file.check(sqlite3_bind_text(handle, place, text, size, lifetime));
        });
    }
}

int64_t SqliteStatement::number(int column) const { return sqlite3_column_int64(handle, column); }
double SqliteStatement::real(int column) const { return sqlite3_column_double(handle, column); }
bool SqliteStatement::isNull(int column) const {
    return sqlite3_column_type(handle, column) == SQLITE_NULL;
}
bool SqliteStatement::isText(int column) const {
    return sqlite3_column_type(handle, column) == SQLITE_TEXT;
}
bool SqliteStatement::isReal(int column) const {
    return sqlite3_column_type(handle, column) == SQLITE_FLOAT;
}
int SqliteStatement::columnCount() const { return sqlite3_column_count(handle); }
const char* SqliteStatement::columnName(int column) const {
    return sqlite3_column_name(handle, column);
}

std::string_view SqliteStatement::rawText(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(handle, column));
    const int length = sqlite3_column_bytes(handle, column);
    return text != nullptr ? std::string_view(text, static_cast<size_t>(length))
                           : std::string_view();
}

zel::String SqliteStatement::text(int column) const {
    return zel::String(zel::fromUtf8(rawText(column)));
}
