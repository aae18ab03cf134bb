#include "platform/registry/SqliteHive.h"

#include <sqlite3.h>

#include <utility>

namespace {

struct Remedy {
    int code;
    const char* problem;
    const char* wayOut;
};

constexpr const char* RestoreIt = "Put a good copy in its place, or move it away and import an export into a new one.";
constexpr const char* FreeSpace = "Nothing of it was kept. Free some space and do it again.";

constexpr Remedy Remedies[] = {
    {SQLITE_NOTADB, "is not a registry file", RestoreIt},
    {SQLITE_CORRUPT, "is damaged", RestoreIt},
    {SQLITE_READONLY, "may not be written",
     "Make the file and its directory writable for this user, or start the program as one who may write them."},
    {SQLITE_FULL, "could not be written because there is no space left", FreeSpace},
    {SQLITE_IOERR, "could not be read or written",
     "Nothing of it was kept. Check the disk and the space on it and do it again."},
    {SQLITE_BUSY, "is being written by another program, which did not finish in time",
     "Nothing was changed. Let the other program finish or close it, and do it again."},
    {SQLITE_CANTOPEN, "could not be opened",
     "Check that it is a file and that this user may read it and its directory."},
    {SQLITE_PERM, "may not be opened", "Give this user the right to read and write it."},
    {SQLITE_AUTH, "may not be opened", "Give this user the right to read and write it."},
    {HiveFault::NewerLayout, "cannot be used", "Use that version, or move the file away to start with a new one."},
    {HiveFault::ForeignDatabase, "cannot be used", "Name another file for the registry."},
};

} // namespace

SqliteHive::SqliteHive(std::filesystem::path file, std::string word, std::chrono::milliseconds lockLimit)
    : file_(std::move(file)), word_(std::move(word)), lockLimit_(lockLimit) {}

std::string SqliteHive::Title() const {
    return "The registry file of " + word_ + ", \"" + file_.string() + "\"";
}

std::string SqliteHive::Describe(const HiveFailure& failure) const {
    for (const Remedy& remedy : Remedies)
        if (remedy.code == failure.Code())
            return Title() + ", " + remedy.problem + " (" + failure.what() + "). " + remedy.wayOut;
    return Title() + ", could not be used (" + failure.what() + ").";
}

std::unique_ptr<HiveConnection> SqliteHive::Connect() {
    if (file_.empty())
        throw RegistryError(RegistryErrorNumber::OpenKey,
                            "There is no place for the registry of " + word_ +
                                ": the variable HOME is not set. Set it, or name the files by RAVLIN_MACHINE_HIVE and "
                                "RAVLIN_USER_HIVE.");
    std::erase_if(idle_, [](const auto& connection) { return !connection->IsCurrent(); });
    if (!idle_.empty()) {
        auto connection = std::move(idle_.back());
        idle_.pop_back();
        return connection;
    }
    try {
        return Attempt(RegistryErrorNumber::OpenKey,
                       [&] { return std::make_unique<HiveConnection>(file_, lockLimit_); });
    } catch (const std::filesystem::filesystem_error& error) {
        throw RegistryError(RegistryErrorNumber::OpenKey, "The directory of the registry file of " + word_ + ", \"" +
                                                              file_.string() + "\", could not be made (" +
                                                              error.code().message() +
                                                              "). Make it, or give this user the right to.");
    }
}

std::shared_ptr<HiveSession> SqliteHive::Begin(std::unique_ptr<HiveConnection> connection,
                                               SqliteSession::Access access) {
    return std::make_shared<SqliteSession>(std::move(connection), access, [this](std::unique_ptr<HiveConnection> used) {
        if (!used->IsUnchanging())
            idle_.push_back(std::move(used));
    });
}

std::shared_ptr<HiveSession> SqliteHive::BeginReading() {
    return Begin(Connect(), SqliteSession::Access::Read);
}

std::shared_ptr<HiveSession> SqliteHive::BeginWriting() {
    auto connection = Connect();
    if (connection->IsReadOnly())
        throw SqliteError(SQLITE_READONLY, "attempt to write a read-only file");
    return Begin(std::move(connection), SqliteSession::Access::Write);
}
