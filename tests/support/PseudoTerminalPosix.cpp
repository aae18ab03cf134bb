#include "support/PseudoTerminal.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <stdexcept>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

void Require(bool done, const char* what) {
    if (!done) {
        throw std::runtime_error(what + std::string(": ") + std::generic_category().message(errno));
    }
}

bool WaitFor(int descriptor, short events, Clock::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    pollfd entry{descriptor, events, 0};
    return left > 0 && ::poll(&entry, 1, static_cast<int>(left)) > 0 && (entry.revents & events) != 0;
}

} // namespace

class PseudoTerminal::Ends {
public:
    Ends() : master_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        Require(master_ >= 0 && ::grantpt(master_) == 0 && ::unlockpt(master_) == 0, "pseudo terminal");
        name_ = std::string(128, '\0');
        Require(::ptsname_r(master_, name_.data(), name_.size()) == 0, "pseudo terminal's name");
        name_.resize(name_.find('\0'));
        slave_ = ::open(name_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
        Require(slave_ >= 0, "pseudo terminal's device");
        termios line{};
        Require(::tcgetattr(slave_, &line) == 0, "pseudo terminal's settings");
        ::cfmakeraw(&line);
        Require(::tcsetattr(slave_, TCSANOW, &line) == 0, "pseudo terminal's settings");
    }
    ~Ends() { Close(); }
    Ends(const Ends&) = delete;
    Ends& operator=(const Ends&) = delete;

    [[nodiscard]] const std::string& Name() const { return name_; }
    [[nodiscard]] int Master() const { return master_; }
    [[nodiscard]] int Slave() const { return slave_; }

    void Close() {
        for (int* const end : {&master_, &slave_})
            if (*end >= 0)
                ::close(std::exchange(*end, -1));
    }

private:
    int master_ = -1;
    int slave_ = -1; // kept open, so that the line holds its bytes while no program has it open
    std::string name_;
};

TemporaryPorts::TemporaryPorts() {
    std::string name = (std::filesystem::temp_directory_path() / "ravlin-ports-XXXXXX").string();
    Require(::mkdtemp(name.data()) != nullptr, "temporary port directory");
    directory_ = name;
    if (const char* value = std::getenv("RAVLIN_PORTS"); value != nullptr) {
        former_ = value;
    }
    ::setenv("RAVLIN_PORTS", name.c_str(), 1);
}

TemporaryPorts::~TemporaryPorts() {
    if (former_) {
        ::setenv("RAVLIN_PORTS", former_->c_str(), 1);
    } else {
        ::unsetenv("RAVLIN_PORTS");
    }
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
}

std::filesystem::path TemporaryPorts::Entry(int port) const {
    return directory_ / ("COM" + std::to_string(port));
}

void TemporaryPorts::Remove(int port) const {
    std::filesystem::remove(Entry(port));
}

void TemporaryPorts::Link(int port, const std::filesystem::path& device) const {
    std::filesystem::create_symlink(device, Entry(port));
}

PseudoTerminal::PseudoTerminal() : ends_(std::make_shared<Ends>()), device_(ends_->Name()) {}

PseudoTerminal::PseudoTerminal(const TemporaryPorts& ports, int port) : PseudoTerminal() {
    node_ = ports.Directory() / ("." + std::filesystem::path(device_).filename().string());
    std::filesystem::create_symlink(device_, node_);
    ports.Link(port, node_);
}

PseudoTerminal::~PseudoTerminal() {
    Unplug();
}

void PseudoTerminal::Send(const std::string& bytes) const {
    const auto deadline = Clock::now() + std::chrono::seconds(5);
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        Require(WaitFor(ends_->Master(), POLLOUT, deadline), "sending to the program");
        // Small pieces: a write that does not fit would wait without limit.
        const auto count =
            ::write(ends_->Master(), bytes.data() + sent, std::min<std::size_t>(bytes.size() - sent, 256));
        Require(count > 0, "sending to the program");
        sent += static_cast<std::size_t>(count);
    }
}

std::string PseudoTerminal::Receive(std::size_t count, std::chrono::milliseconds limit) const {
    const auto deadline = Clock::now() + limit;
    std::string received;
    while (received.size() < count && WaitFor(ends_->Master(), POLLIN, deadline)) {
        std::array<char, 4096> buffer{};
        const auto got = ::read(ends_->Master(), buffer.data(), std::min(buffer.size(), count - received.size()));
        if (got <= 0) {
            break;
        }
        received.append(buffer.data(), static_cast<std::size_t>(got));
    }
    return received;
}

std::string PseudoTerminal::ReceiveUntil(const std::string& text, std::chrono::milliseconds limit) const {
    const auto deadline = Clock::now() + limit;
    std::string received;
    while (!received.ends_with(text)) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        const std::string next = Receive(1, left);
        if (next.empty()) {
            break;
        }
        received += next;
    }
    return received;
}

bool PseudoTerminal::WaitUntilReadable() const {
    return WaitFor(ends_->Slave(), POLLIN, Clock::now() + std::chrono::seconds(5));
}

void PseudoTerminal::Unplug() {
    std::error_code ignored;
    if (const auto node = std::exchange(node_, {}); !node.empty()) // only once: the next one may have its name
        std::filesystem::remove(node, ignored);
    ends_->Close();
}
