#include "platform/registry/HiveFiles.h"

#include <unistd.h>

#include <cstdlib>

namespace {

using Path = std::filesystem::path;

Path Variable(const char* name) {
    const char* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): nothing sets the environment
    return value == nullptr ? Path() : Path(value);
}

// The base directory that variable names; a relative one counts as unset.
Path BaseDirectory(const char* variable, const char* underHome) {
    Path named = Variable(variable);
    if (named.is_absolute())
        return named;
    const Path home = Variable("HOME");
    return home.empty() ? Path() : home / underHome;
}

Path InBaseDirectory(const Path& base, const char* fileName) {
    return base.empty() ? Path() : base / "ravlin" / fileName;
}

Path MachineHive() {
    const Path shared = "/var/lib/ravlin";
    std::error_code error;
    if (std::filesystem::is_directory(shared, error) && access(shared.c_str(), W_OK | X_OK) == 0)
        return shared / "machine.db";
    return InBaseDirectory(BaseDirectory("XDG_DATA_HOME", ".local/share"), "machine.db");
}

Path UserHive() {
    return InBaseDirectory(BaseDirectory("XDG_CONFIG_HOME", ".config"), "user.db");
}

} // namespace

HiveFiles SystemHiveFiles() {
    const Path machine = Variable("RAVLIN_MACHINE_HIVE");
    const Path user = Variable("RAVLIN_USER_HIVE");
    return {machine.empty() ? MachineHive() : machine, user.empty() ? UserHive() : user};
}
