#include "lane/VirtualPort.h"

#include "lane/LaneError.h"

#include <asio/buffer.hpp>

#include <cerrno>
#include <cstdlib>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace {

void Require(bool done) {
    if (!done) {
        throw LaneError("there is no pseudo terminal: " + std::generic_category().message(errno));
    }
}

} // namespace

VirtualPort::VirtualPort(asio::io_context& context, const std::filesystem::path& directory, int port, Handlers handlers)
    : handlers_(std::move(handlers)),
      master_(context),
      slave_(context),
      admission_(context),
      input_(context, [this](const std::string& bytes) { handlers_.received(bytes); }),
      output_(context, [this](const std::string& bytes) { Put(bytes); }) {
    Open();
    entry_.emplace(directory, port, device_);
    Read();
    Admit();
}

// The entry goes first, so that nobody opens a port that is on its way out.
VirtualPort::~VirtualPort() {
    entry_.reset();
}

void VirtualPort::Pace(bool paced) {
    input_.Pace(paced);
    output_.Pace(paced);
}

void VirtualPort::Open() {
    const int master = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    Require(master >= 0);
    master_.assign(master);
    std::array<char, 128> name{};
    Require(::grantpt(master) == 0 && ::unlockpt(master) == 0 && ::ptsname_r(master, name.data(), name.size()) == 0);
    device_ = name.data();
    const int slave = ::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    Require(slave >= 0);
    slave_.assign(slave);
    termios line{};
    Require(::tcgetattr(slave, &line) == 0);
    ::cfmakeraw(&line);
    ::cfsetspeed(&line, B9600);
    Require(::tcsetattr(slave, TCSANOW, &line) == 0);
}

void VirtualPort::Read() {
    master_.async_read_some(asio::buffer(buffer_),
                            [this, life = std::weak_ptr(life_)](const asio::error_code& error, std::size_t count) {
                                if (error || life.expired()) {
                                    return;
                                }
                                const std::string bytes(buffer_.data(), count);
                                Read();
                                input_.Push(bytes);
                            });
}

void VirtualPort::Put(const std::string& bytes) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const auto count = ::write(master_.native_handle(), bytes.data() + sent, bytes.size() - sent);
        if (count <= 0) {
            handlers_.lost(bytes.size() - sent);
            return;
        }
        sent += static_cast<std::size_t>(count);
    }
}

// A program that was killed leaves the exclusive mode behind, which on a real port would end with it. Programs that
// follow would be kept out for as long as the lane runs; the file lock still keeps them apart.
void VirtualPort::Admit() {
    ::ioctl(slave_.native_handle(), TIOCNXCL);
    admission_.expires_after(std::chrono::milliseconds(250));
    admission_.async_wait([this, life = std::weak_ptr(life_)](const asio::error_code& error) {
        if (!error && !life.expired()) {
            Admit();
        }
    });
}
