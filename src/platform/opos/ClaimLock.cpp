#include "platform/opos/ClaimLock.h"

#include "platform/opos/FileNames.h"

#include <cerrno>
#include <cstdlib>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

// The user's own directory for things that end with the session; null where there is none.
const char* RuntimeDirectory() {
    const char* runtime = std::getenv("XDG_RUNTIME_DIR"); // NOLINT(concurrency-mt-unsafe): nothing sets it
    return runtime != nullptr && *runtime != '\0' ? runtime : nullptr;
}

// Among the temporary files, where everybody may write, somebody else could have made our directory before us.
bool MakePrivateDirectory(const fs::path& directory) {
    const bool mustBeOurs = RuntimeDirectory() == nullptr;
    std::error_code error;
    fs::create_directories(directory.parent_path().parent_path(), error);
    for (const fs::path& made : {directory.parent_path(), directory}) {
        struct stat status {};
        if (::mkdir(made.c_str(), 0700) != 0 && errno != EEXIST)
            return false;
        if (::lstat(made.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
            return false;
        if (mustBeOurs && status.st_uid != ::geteuid())
            return false;
    }
    return true;
}

} // namespace

ClaimLock::~ClaimLock() {
    Release();
}

fs::path ClaimLock::Directory() {
    if (const char* runtime = RuntimeDirectory())
        return fs::path(runtime) / "ravlin" / "claims";
    std::error_code error;
    const fs::path temporary = fs::temp_directory_path(error);
    return (error ? fs::path("/tmp") : temporary) / ("ravlin-" + std::to_string(::geteuid())) / "claims";
}

ClaimLock::Outcome ClaimLock::Take(const std::string& deviceName) {
    Release();
    const fs::path directory = Directory();
    if (!MakePrivateDirectory(directory))
        return Outcome::Impossible;
    const fs::path path = directory / FileNameFor(deviceName);
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (file < 0)
        return Outcome::Impossible;
    if (::flock(file, LOCK_EX | LOCK_NB) == 0) {
        file_ = file;
        return Outcome::Taken;
    }
    const bool held = errno == EWOULDBLOCK;
    ::close(file);
    return held ? Outcome::HeldByAnother : Outcome::Impossible;
}

void ClaimLock::Release() noexcept {
    if (file_ >= 0)
        ::close(file_);
    file_ = -1;
}

bool ClaimLock::HeldByAnother(const std::string& deviceName) {
    ClaimLock probe;
    return probe.Take(deviceName) == Outcome::HeldByAnother;
}
