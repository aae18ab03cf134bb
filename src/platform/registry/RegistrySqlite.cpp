#include "platform/registry/RegistrySqlite.h"

#include "platform/registry/Hives.h"
#include "platform/registry/SqliteHive.h"

namespace {

Hives OpenHives(const HiveFiles& files, std::chrono::milliseconds lockLimit) {
    return {std::make_unique<SqliteHive>(files.machine, "this machine", lockLimit),
            std::make_unique<SqliteHive>(files.user, "the current user", lockLimit)};
}

} // namespace

std::unique_ptr<Registry> OpenSqliteRegistry(const HiveFiles& files, std::chrono::milliseconds lockLimit) {
    return MakeRegistry(OpenHives(files, lockLimit));
}

std::unique_ptr<RegistryTree> OpenSqliteTree(const HiveFiles& files, std::chrono::milliseconds lockLimit) {
    return MakeTree(OpenHives(files, lockLimit));
}

std::unique_ptr<Registry> OpenSystemRegistry() {
    return OpenSqliteRegistry(SystemHiveFiles());
}

std::unique_ptr<RegistryTree> OpenSystemRegistryTree() {
    return OpenSqliteTree(SystemHiveFiles());
}
