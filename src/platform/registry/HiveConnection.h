// A connection to one hive's database: its tables and its prepared statements.
#pragma once

#include "platform/registry/SqliteConnection.h"

#include <array>
#include <filesystem>
#include <memory>
#include <string_view>

enum class HiveQuery {
    Begin,
    BeginImmediate,
    Commit,
    Rollback,
    FindKey,
    AddKey,
    SubKeys,
    Values,
    PutValue,
    DropValue,
    DropValuesBelow,
    DropKeysBelow,
    Count_,
};

class HiveConnection {
public:
    // Opens the file, makes it and the directories above it where they are missing, and its tables where it is new.
    // A new file in a directory of a group is made for the whole group.
    // Errors: SqliteError; std::filesystem::filesystem_error.
    HiveConnection(const std::filesystem::path& file, std::chrono::milliseconds lockLimit);

    // The prepared statement, ready to bind; it stays the connection's and is reset when the pointer goes.
    struct Reset {
        void operator()(SqliteStatement* statement) const { statement->Reset(); }
    };
    using Running = std::unique_ptr<SqliteStatement, Reset>;
    [[nodiscard]] Running Prepared(HiveQuery query);
    // Runs a statement that gives no rows.
    void Run(HiveQuery query);

    // Whether the file that it has open is still the one of that name: it may have been moved away or replaced.
    [[nodiscard]] bool IsCurrent() const;
    // False as well when SQLite has given up a transaction by itself (a full disk).
    [[nodiscard]] bool InTransaction() const;
    [[nodiscard]] bool IsReadOnly() const { return connection_->IsReadOnly(); }
    // Whether it would miss what others write from now on.
    [[nodiscard]] bool IsUnchanging() const { return mode_ == SqliteConnection::Mode::Unchanging; }
    [[nodiscard]] std::int64_t ChangedRows() const { return connection_->ChangedRows(); }

private:
    void Open(SqliteConnection::Mode mode);
    void PrepareTables();
    void CreateTables();

    // What tells a file from another of the same name.
    struct FileIdentity {
        std::uintmax_t device = 0;
        std::uintmax_t number = 0;
        bool operator==(const FileIdentity&) const = default;
    };
    [[nodiscard]] FileIdentity Identity() const;

    std::string file_;
    FileIdentity identity_;
    std::chrono::milliseconds lockLimit_;
    SqliteConnection::Mode mode_ = SqliteConnection::Mode::ReadWrite;
    std::unique_ptr<SqliteConnection> connection_;
    std::array<std::unique_ptr<SqliteStatement>, static_cast<std::size_t>(HiveQuery::Count_)> statements_;
};

// Numbers beside SQLite's own for what is wrong with a file that SQLite itself could read.
namespace HiveFault {
inline constexpr int NewerLayout = 1001;
inline constexpr int ForeignDatabase = 1002;
} // namespace HiveFault
