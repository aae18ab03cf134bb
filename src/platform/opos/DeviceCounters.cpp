#include "platform/opos/DeviceCounters.h"

#include "platform/opos/FileNames.h"

#include <charconv>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include <fcntl.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

struct StoredCounter {
    Counter counter;
    std::string_view name;
};

constexpr std::array StoredCounters = {
    StoredCounter{Counter::PoweredSeconds, "PoweredSeconds"},
    StoredCounter{Counter::CommunicationErrors, "CommunicationErrors"},
    StoredCounter{Counter::GoodScans, "GoodScans"},
    StoredCounter{Counter::DiscardedLabels, "DiscardedLabels"},
    StoredCounter{Counter::GoodWeightReads, "GoodWeightReads"},
    StoredCounter{Counter::UnreadableReplies, "UnreadableReplies"},
};
static_assert(StoredCounters.size() == CounterCount);

std::size_t IndexOf(Counter counter) {
    return static_cast<std::size_t>(counter);
}

std::uint64_t NumberIn(std::string_view text) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? number : 0;
}

// A rename is durable only when what it renames is.
bool WriteDurably(const fs::path& path, const std::string& text) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (file < 0)
        return false;
    const bool written = ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    const bool durable = written && ::fsync(file) == 0;
    return ::close(file) == 0 && durable;
}

const char* Environment(const char* name) {
    const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): nothing sets it
    return value != nullptr && *value != '\0' ? value : nullptr;
}

} // namespace

void DeviceCounters::Count(Counter counter, std::uint64_t by) {
    const std::lock_guard lock(mutex_);
    values_[IndexOf(counter)] += by;
}

std::uint64_t DeviceCounters::Value(Counter counter) const {
    const std::lock_guard lock(mutex_);
    return values_[IndexOf(counter)];
}

void DeviceCounters::Load() {
    const std::lock_guard lock(mutex_);
    values_ = {};
    std::ifstream file(file_);
    for (std::string line; std::getline(file, line);) {
        const auto blank = line.find(' ');
        if (blank == std::string::npos)
            continue;
        for (const StoredCounter& stored : StoredCounters)
            if (std::string_view(line).substr(0, blank) == stored.name)
                values_[IndexOf(stored.counter)] = NumberIn(std::string_view(line).substr(blank + 1));
    }
}

bool DeviceCounters::Save() const {
    if (file_.empty())
        return true;
    std::ostringstream text;
    {
        const std::lock_guard lock(mutex_);
        for (const StoredCounter& stored : StoredCounters)
            text << stored.name << ' ' << values_[IndexOf(stored.counter)] << '\n';
    }
    std::error_code error;
    fs::create_directories(file_.parent_path(), error);
    fs::path replacement = file_;
    replacement += ".new";
    if (!WriteDurably(replacement, text.str()))
        return false;
    fs::rename(replacement, file_, error);
    return !error;
}

fs::path DeviceCounters::FileOf(std::string_view deviceClass, std::string_view deviceName) {
    fs::path state;
    if (const char* home = Environment("XDG_STATE_HOME"))
        state = home;
    else if (const char* userHome = Environment("HOME"))
        state = fs::path(userHome) / ".local" / "state";
    else
        return {};
    return state / "ravlin" / "statistics" / (std::string(deviceClass) + '-' + FileNameFor(deviceName));
}
