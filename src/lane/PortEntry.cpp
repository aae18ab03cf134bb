#include "lane/PortEntry.h"

#include "lane/LaneError.h"
#include "platform/serial/SerialPorts.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

fs::path MadeDirectory(const fs::path& directory) {
    std::error_code error;
    fs::create_directories(directory, error);
    if (error) {
        throw LaneError("the port directory " + directory.string() + " cannot be made: " + error.message());
    }
    return directory;
}

// Whether both the path and the descriptor are the same file still.
bool IsAt(const fs::path& file, int descriptor) {
    struct stat byPath {};
    struct stat byDescriptor {};
    return ::stat(file.c_str(), &byPath) == 0 && ::fstat(descriptor, &byDescriptor) == 0 &&
           byPath.st_ino == byDescriptor.st_ino && byPath.st_dev == byDescriptor.st_dev;
}

// Only lanes link to pseudo terminals; whatever else stands there is somebody's set-up.
void RequireOurs(const fs::path& entry, const std::string& name) {
    std::error_code error;
    const fs::file_status status = fs::symlink_status(entry, error);
    if (status.type() == fs::file_type::not_found) {
        return;
    }
    const fs::path target = fs::read_symlink(entry, error);
    if (error || target.parent_path() != "/dev/pts") {
        throw LaneError(name + " is set up for a real device already; choose another port");
    }
}

} // namespace

PortEntry::Claim::Claim(fs::path file, const std::string& name) : file_(std::move(file)) {
    // A lane that ends just now takes its file away: then the lock is worth nothing and a new file is needed.
    for (int attempt = 0; attempt < 10; ++attempt) {
        const int descriptor = ::open(file_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
        if (descriptor < 0) {
            throw LaneError(name + " cannot be made: " + std::generic_category().message(errno));
        }
        const bool locked = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
        const bool inPlace = IsAt(file_, descriptor);
        if (locked && inPlace) {
            descriptor_ = descriptor;
            return;
        }
        ::close(descriptor);
        if (inPlace) {
            break;
        }
    }
    throw LaneError(name + " belongs to another lane that is running");
}

PortEntry::Claim::~Claim() {
    ::unlink(file_.c_str());
    ::close(descriptor_);
}

PortEntry::PortEntry(const fs::path& directory, int port, const std::string& device)
    : name_(SerialPortName(port)),
      entry_(MadeDirectory(directory) / name_),
      claim_(directory / ("." + name_ + ".lane"), name_) {
    RequireOurs(entry_, name_);
    // Put in place in one step, so that a program never finds the port missing.
    const fs::path fresh = directory / ("." + name_ + ".new");
    std::error_code error;
    fs::remove(fresh, error);
    fs::create_symlink(device, fresh, error);
    if (!error) {
        fs::rename(fresh, entry_, error);
    }
    if (error) {
        throw LaneError(name_ + " cannot be made: " + error.message());
    }
}

PortEntry::~PortEntry() {
    std::error_code ignored;
    fs::remove(entry_, ignored);
}
