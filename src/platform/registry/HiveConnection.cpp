#include "platform/registry/HiveConnection.h"

#include "platform/registry/SharedFile.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <thread>

namespace {

constexpr std::int64_t Layout = 1;
constexpr std::int64_t ApplicationId = 0x52564C4E; // "RVLN"

// Key 0 is the hive itself. A key's values lie together in the order in which they were made.
constexpr const char* Tables = R"(
CREATE TABLE RegistryKey (
    Id INTEGER PRIMARY KEY,
    Parent INTEGER NOT NULL,
    Folded TEXT NOT NULL,
    Name TEXT NOT NULL);
CREATE UNIQUE INDEX RegistryKeyByName ON RegistryKey (Parent, Folded);
CREATE TABLE RegistryValue (
    KeyId INTEGER NOT NULL,
    Position INTEGER NOT NULL,
    Folded TEXT NOT NULL,
    Name TEXT NOT NULL,
    Type INTEGER NOT NULL,
    Data BLOB NOT NULL,
    PRIMARY KEY (KeyId, Position)) WITHOUT ROWID;
CREATE UNIQUE INDEX RegistryValueByName ON RegistryValue (KeyId, Folded);
PRAGMA application_id = 1381387342;
PRAGMA user_version = 1;
)";
static_assert(ApplicationId == 1381387342 && Layout == 1);

constexpr const char* Below = "WITH RECURSIVE Below (Id) AS (SELECT ?1 UNION "
                              "SELECT k.Id FROM RegistryKey k JOIN Below b ON k.Parent = b.Id) ";

std::string Sql(HiveQuery query) {
    switch (query) {
    case HiveQuery::Begin:
        return "BEGIN";
    case HiveQuery::BeginImmediate:
        return "BEGIN IMMEDIATE";
    case HiveQuery::Commit:
        return "COMMIT";
    case HiveQuery::Rollback:
        return "ROLLBACK";
    case HiveQuery::FindKey:
        return "SELECT Id FROM RegistryKey WHERE Parent = ?1 AND Folded = ?2";
    case HiveQuery::AddKey:
        return "INSERT INTO RegistryKey (Parent, Folded, Name) VALUES (?1, ?2, ?3) RETURNING Id";
    case HiveQuery::SubKeys:
        return "SELECT Name FROM RegistryKey WHERE Parent = ?1 ORDER BY Folded";
    case HiveQuery::Values:
        return "SELECT Name, Folded, Type, Data FROM RegistryValue WHERE KeyId = ?1 ORDER BY Position";
    case HiveQuery::PutValue:
        return "INSERT INTO RegistryValue (KeyId, Position, Folded, Name, Type, Data) VALUES (?1, "
               "(SELECT coalesce(max(Position), 0) + 1 FROM RegistryValue WHERE KeyId = ?1), ?2, ?3, ?4, ?5) "
               "ON CONFLICT (KeyId, Folded) DO UPDATE SET Type = excluded.Type, Data = excluded.Data";
    case HiveQuery::DropValue:
        return "DELETE FROM RegistryValue WHERE KeyId = ?1 AND Folded = ?2";
    case HiveQuery::DropValuesBelow:
        return std::string(Below) + "DELETE FROM RegistryValue WHERE KeyId IN Below";
    case HiveQuery::DropKeysBelow:
        return std::string(Below) + "DELETE FROM RegistryKey WHERE Id IN Below";
    case HiveQuery::Count_:
        break;
    }
    throw std::logic_error("No such query");
}

bool IsEmptyOrMissing(const std::string& file) {
    std::error_code error;
    const auto size = std::filesystem::file_size(file, error);
    return error || size == 0;
}

// The change of a new file to write-ahead logging does not wait for locks by itself.
void UseWriteAheadLog(SqliteConnection& connection, std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (true) {
        try {
            connection.Execute("PRAGMA journal_mode = WAL");
            return;
        } catch (const SqliteError& error) {
            if (error.Code() != SQLITE_BUSY || std::chrono::steady_clock::now() >= end)
                throw;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }
}

} // namespace

HiveConnection::HiveConnection(const std::filesystem::path& file, std::chrono::milliseconds lockLimit)
    : file_(std::filesystem::absolute(file).string()), lockLimit_(lockLimit) {
    std::filesystem::create_directories(std::filesystem::path(file_).parent_path());
    MakeSharedFile(file_);
    try {
        Open(SqliteConnection::Mode::ReadWrite);
    } catch (const SqliteError& error) {
        // In a directory that may not be written the log's index cannot be made. Without a log the file itself is the
        // whole truth.
        const bool unwritable = error.Code() == SQLITE_CANTOPEN || error.Code() == SQLITE_READONLY;
        if (!unwritable || IsEmptyOrMissing(file_) || !IsEmptyOrMissing(file_ + "-wal"))
            throw;
        Open(SqliteConnection::Mode::Unchanging);
    }
}

void HiveConnection::Open(SqliteConnection::Mode mode) {
    mode_ = mode;
    connection_ = std::make_unique<SqliteConnection>(file_, mode, lockLimit_);
    PrepareTables();
    identity_ = Identity();
    connection_->Execute("PRAGMA synchronous = FULL");
}

void HiveConnection::PrepareTables() {
    const std::int64_t layout = connection_->Number("PRAGMA user_version");
    if (layout == 0)
        return CreateTables();
    if (connection_->Number("PRAGMA application_id") != ApplicationId)
        throw SqliteError(HiveFault::ForeignDatabase, "it is the database of another program");
    if (layout > Layout)
        throw SqliteError(HiveFault::NewerLayout, "it was written by a newer version of Ravlin");
}

void HiveConnection::CreateTables() {
    if (IsReadOnly())
        throw SqliteError(SQLITE_READONLY, "it is empty and may not be written");
    if (connection_->Number("SELECT count(*) FROM sqlite_schema") == 0)
        UseWriteAheadLog(*connection_, lockLimit_);
    connection_->Execute("BEGIN IMMEDIATE");
    try {
        // Another program may have been faster.
        if (connection_->Number("PRAGMA user_version") == 0) {
            if (connection_->Number("SELECT count(*) FROM sqlite_schema") != 0)
                throw SqliteError(HiveFault::ForeignDatabase, "it is the database of another program");
            connection_->Execute(Tables);
        }
        connection_->Execute("COMMIT");
    } catch (...) {
        sqlite3_exec(&connection_->Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

HiveConnection::Running HiveConnection::Prepared(HiveQuery query) {
    auto& statement = statements_.at(static_cast<std::size_t>(query));
    if (!statement)
        statement = std::make_unique<SqliteStatement>(connection_->Handle(), Sql(query).c_str());
    return Running(statement.get());
}

void HiveConnection::Run(HiveQuery query) {
    Prepared(query)->Step();
}

HiveConnection::FileIdentity HiveConnection::Identity() const {
    struct stat status {};
    if (stat(file_.c_str(), &status) != 0)
        return {};
    return {status.st_dev, status.st_ino};
}

bool HiveConnection::IsCurrent() const {
    return Identity() == identity_;
}

bool HiveConnection::InTransaction() const {
    return sqlite3_get_autocommit(&connection_->Handle()) == 0;
}
