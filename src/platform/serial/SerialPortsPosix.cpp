#include "platform/serial/SerialPorts.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <string_view>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr int LastPort = 32767;
constexpr std::string_view Prefix = "COM";

std::string Environment(const char* name) {
    const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): nobody sets it meanwhile
    return value != nullptr ? value : "";
}

// n of exactly "COMn", as SerialPortName writes it; 0 for any other name.
int NumberOf(const std::string& name) {
    int port = 0;
    const char* const end = name.data() + name.size();
    if (!name.starts_with(Prefix) || std::from_chars(name.data() + Prefix.size(), end, port).ptr != end) {
        return 0;
    }
    return port > 0 && port <= LastPort && name == SerialPortName(port) ? port : 0;
}

} // namespace

std::string SerialPortName(int port) {
    return std::string(Prefix) + std::to_string(port);
}

std::optional<fs::path> UserSerialPortDirectory() {
    if (const std::string chosen = Environment("RAVLIN_PORTS"); !chosen.empty()) {
        return chosen;
    }
    if (const std::string runtime = Environment("XDG_RUNTIME_DIR"); !runtime.empty()) {
        return fs::path(runtime) / "ravlin" / "ports";
    }
    return std::nullopt;
}

std::vector<fs::path> SerialPortDirectories() {
    std::vector<fs::path> directories;
    if (const auto own = UserSerialPortDirectory()) {
        directories.push_back(*own);
    }
    if (Environment("RAVLIN_PORTS").empty()) {
        directories.emplace_back("/etc/ravlin/ports");
    }
    return directories;
}

std::optional<fs::path> SerialPortDevice(int port) {
    for (const fs::path& directory : SerialPortDirectories()) {
        std::error_code error;
        const fs::path entry = directory / SerialPortName(port);
        const fs::file_status status = fs::symlink_status(entry, error);
        // An entry that may not be looked at is a port too: opening it tells the user about the missing permission.
        if (status.type() != fs::file_type::not_found) {
            return entry;
        }
    }
    return std::nullopt;
}

std::vector<int> SerialPortNumbers() {
    std::vector<int> ports;
    for (const fs::path& directory : SerialPortDirectories()) {
        std::error_code error;
        for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error)) {
            if (const int port = NumberOf(entry->path().filename().string()); port != 0) {
                ports.push_back(port);
            }
        }
    }
    std::sort(ports.begin(), ports.end());
    ports.erase(std::unique(ports.begin(), ports.end()), ports.end());
    return ports;
}
