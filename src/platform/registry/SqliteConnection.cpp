#include "platform/registry/SqliteConnection.h"

#include <sqlite3.h>

namespace {

constexpr int PrimaryCodeMask = 0xFF;

[[noreturn]] void Fail(sqlite3* connection, int code) {
    throw SqliteError(code & PrimaryCodeMask,
                      connection != nullptr ? sqlite3_errmsg(connection) : sqlite3_errstr(code));
}

void Check(sqlite3* connection, int code) {
    if (code != SQLITE_OK)
        Fail(connection, code);
}

// As SQLite's URI file names want it.
std::string Uri(const std::string& file, const char* query) {
    constexpr const char* Digits = "0123456789ABCDEF";
    std::string uri = "file:";
    for (const char c : file) {
        if (c != '%' && c != '?' && c != '#') {
            uri += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        uri += '%';
        uri += Digits[byte >> 4];
        uri += Digits[byte & 0xF];
    }
    return uri + query;
}

} // namespace

SqliteStatement::SqliteStatement(sqlite3& connection, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(&connection, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    statement_.reset(statement);
    Check(&connection, code);
}

void SqliteStatement::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

SqliteStatement& SqliteStatement::Bind(int parameter, std::int64_t number) {
    Check(sqlite3_db_handle(statement_.get()), sqlite3_bind_int64(statement_.get(), parameter, number));
    return *this;
}

SqliteStatement& SqliteStatement::Bind(int parameter, std::string_view text) {
    // An empty view may hold a null pointer, which SQLite would take for NULL.
    const char* const data = text.empty() ? "" : text.data();
    Check(sqlite3_db_handle(statement_.get()),
          sqlite3_bind_text64(statement_.get(), parameter, data, text.size(), SQLITE_STATIC, SQLITE_UTF8));
    return *this;
}

SqliteStatement& SqliteStatement::BindBytes(int parameter, std::string_view bytes) {
    const char* const data = bytes.empty() ? "" : bytes.data();
    Check(sqlite3_db_handle(statement_.get()),
          sqlite3_bind_blob64(statement_.get(), parameter, data, bytes.size(), SQLITE_STATIC));
    return *this;
}

bool SqliteStatement::Step() {
    const int code = sqlite3_step(statement_.get());
    if (code == SQLITE_ROW)
        return true;
    if (code != SQLITE_DONE)
        Fail(sqlite3_db_handle(statement_.get()), code);
    return false;
}

std::int64_t SqliteStatement::Number(int column) const {
    return sqlite3_column_int64(statement_.get(), column);
}

std::string SqliteStatement::Bytes(int column) const {
    const void* const data = sqlite3_column_blob(statement_.get(), column);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
    return size == 0 ? std::string() : std::string(static_cast<const char*>(data), size);
}

void SqliteStatement::Reset() noexcept {
    sqlite3_reset(statement_.get());
}

SqliteConnection::SqliteConnection(const std::string& file, Mode mode, std::chrono::milliseconds lockLimit) {
    const bool unchanging = mode == Mode::Unchanging;
    const int access = unchanging ? SQLITE_OPEN_READONLY | SQLITE_OPEN_URI : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    const std::string name = unchanging ? Uri(file, "?immutable=1") : file;
    sqlite3* connection = nullptr;
    const int code = sqlite3_open_v2(name.c_str(), &connection, access | SQLITE_OPEN_NOMUTEX, nullptr);
    connection_.reset(connection);
    Check(connection, code);
    sqlite3_busy_timeout(connection, static_cast<int>(lockLimit.count()));
}

void SqliteConnection::Close::operator()(sqlite3* connection) const {
    sqlite3_close_v2(connection);
}

void SqliteConnection::Execute(const char* sql) {
    Check(connection_.get(), sqlite3_exec(connection_.get(), sql, nullptr, nullptr, nullptr));
}

std::int64_t SqliteConnection::Number(const char* sql) {
    SqliteStatement statement(*connection_, sql);
    return statement.Step() ? statement.Number(0) : 0;
}

bool SqliteConnection::IsReadOnly() const {
    return sqlite3_db_readonly(connection_.get(), "main") == 1;
}

std::int64_t SqliteConnection::ChangedRows() const {
    return sqlite3_changes64(connection_.get());
}
