// SQLite's C interface with owners and exceptions.
#pragma once

#include "platform/registry/HiveSession.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

// What SQLite answered: a primary result code of it.
class SqliteError : public HiveFailure {
public:
    using HiveFailure::HiveFailure;
};

// A prepared statement. Parameters and columns are counted from 1 and from 0, as in SQLite. Texts that are bound must
// live until the statement is reset. Every operation raises SqliteError where it fails.
class SqliteStatement {
public:
    SqliteStatement(sqlite3& connection, const char* sql);

    SqliteStatement& Bind(int parameter, std::int64_t number);
    SqliteStatement& Bind(int parameter, std::string_view text);
    SqliteStatement& BindBytes(int parameter, std::string_view bytes);

    // True with a row, false at the end.
    bool Step();
    [[nodiscard]] std::int64_t Number(int column) const;
    // The bytes of a text or blob column.
    [[nodiscard]] std::string Bytes(int column) const;

    // Makes the statement ready to run again; a read transaction of its own ends.
    void Reset() noexcept;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

class SqliteConnection {
public:
    enum class Mode { ReadWrite, Unchanging }; // Unchanging: the file cannot change while it is open

    // Creates a missing file in mode ReadWrite. Operations wait up to lockLimit for other programs' locks.
    SqliteConnection(const std::string& file, Mode mode, std::chrono::milliseconds lockLimit);

    [[nodiscard]] sqlite3& Handle() const { return *connection_; }
    void Execute(const char* sql);
    // The first column of the only row.
    [[nodiscard]] std::int64_t Number(const char* sql);
    [[nodiscard]] bool IsReadOnly() const;
    [[nodiscard]] std::int64_t ChangedRows() const;

private:
    struct Close {
        void operator()(sqlite3* connection) const;
    };
    std::unique_ptr<sqlite3, Close> connection_;
};
