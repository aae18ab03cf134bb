#include "platform/serial/SerialDevice.h"

#include "platform/serial/SerialPorts.h"

#include <asio/error.hpp>

#include <array>
#include <cerrno>
#include <optional>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace {

// Owns a file descriptor until it is released.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) {
            ::close(number_);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    [[nodiscard]] int Number() const { return number_; }
    int Release() { return std::exchange(number_, -1); }

private:
    int number_;
};

[[noreturn]] void RaiseSystemError(int port, const std::string& device) {
    const int cause = errno;
    switch (cause) {
    case ENOENT:
    case ENOTDIR:
    case ELOOP:
    case ENODEV:
    case ENXIO:
        throw SerialError::DeviceMissing(port, device);
    case EBUSY:
    case EWOULDBLOCK:
        throw SerialError::Busy(port);
    case EACCES:
    case EPERM:
    case EROFS:
        throw SerialError::NotPermitted(port, device);
    case EIO:
        throw SerialError::Lost(port);
    default:
        throw SerialError::Other(port, std::error_code(cause, std::generic_category()));
    }
}

// Where the entry of the port directory leads, for messages.
std::string Target(const std::filesystem::path& entry) {
    std::error_code error;
    const auto target = std::filesystem::read_symlink(entry, error);
    return error ? entry.string() : target.string();
}

std::optional<speed_t> Speed(unsigned baudRate) {
    struct Rate {
        unsigned baudRate;
        speed_t speed;
    };
    constexpr std::array Rates{Rate{1200, B1200},   Rate{2400, B2400},   Rate{4800, B4800},   Rate{9600, B9600},
                               Rate{19200, B19200}, Rate{38400, B38400}, Rate{57600, B57600}, Rate{115200, B115200}};
    for (const Rate& rate : Rates) {
        if (rate.baudRate == baudRate) {
            return rate.speed;
        }
    }
    return std::nullopt;
}

// Keeps errno.
bool IsPseudoTerminal(int descriptor) {
    const int cause = errno;
    char name[64] = "";
    const bool named = ttyname_r(descriptor, name, sizeof name) == 0;
    errno = cause;
    return named && std::string_view(name).starts_with("/dev/pts/");
}

// False with errno when the device refuses.
bool Configure(int descriptor, const SerialSettings& settings) {
    const auto speed = Speed(settings.baudRate);
    if (!speed || settings.dataBits < 7 || settings.dataBits > 8 || settings.stopBits < 1 || settings.stopBits > 2) {
        errno = EINVAL;
        return false;
    }
    termios line{};
    if (tcgetattr(descriptor, &line) != 0) {
        return false;
    }
    cfmakeraw(&line);
    line.c_iflag |= IGNBRK | IGNPAR;
    line.c_cflag &= ~static_cast<tcflag_t>(CSIZE | CSTOPB | PARENB | PARODD | CRTSCTS);
    line.c_cflag |= CREAD | CLOCAL | (settings.dataBits == 7 ? CS7 : CS8) | (settings.stopBits == 2 ? CSTOPB : 0);
    if (settings.parity != SerialParity::None) {
        line.c_iflag |= INPCK;
        line.c_cflag |= PARENB | (settings.parity == SerialParity::Odd ? PARODD : 0);
    }
    line.c_cc[VMIN] = 1;
    line.c_cc[VTIME] = 0;
    cfsetispeed(&line, *speed);
    cfsetospeed(&line, *speed);
    if (tcsetattr(descriptor, TCSANOW, &line) == 0) {
        return true;
    }
    // A pseudo terminal knows neither parity nor seven bits, which is an error where nothing else changed.
    return errno == EINVAL && IsPseudoTerminal(descriptor);
}

} // namespace

asio::serial_port OpenSerialDevice(asio::io_context& context, int port, const SerialSettings& settings) {
    const auto entry = SerialPortDevice(port);
    if (!entry) {
        throw SerialError::NoSuchPort(port);
    }
    const std::string target = Target(*entry);
    // Looked at before it is opened: opening alone can already act on something that is not a terminal.
    struct stat status {};
    if (::stat(entry->c_str(), &status) != 0) {
        RaiseSystemError(port, target);
    }
    if (!S_ISCHR(status.st_mode)) {
        throw SerialError::NotSerial(port, target);
    }
    Descriptor descriptor(::open(entry->c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (descriptor.Number() < 0) {
        RaiseSystemError(port, target);
    }
    if (isatty(descriptor.Number()) == 0) {
        throw SerialError::NotSerial(port, target);
    }
    // The exclusive mode keeps strangers out, though not root; the file lock keeps programs of this family apart.
    if (flock(descriptor.Number(), LOCK_EX | LOCK_NB) != 0 || ioctl(descriptor.Number(), TIOCEXCL) != 0 ||
        !Configure(descriptor.Number(), settings)) {
        RaiseSystemError(port, target);
    }
    asio::serial_port device(context);
    asio::error_code error;
    device.assign(descriptor.Number(), error);
    if (error) {
        throw SerialError::Other(port, error);
    }
    descriptor.Release();
    return device;
}

void CloseSerialDevice(asio::serial_port& device) noexcept {
    if (device.is_open()) {
        // The mode of a pseudo terminal outlives the descriptor.
        ioctl(device.native_handle(), TIOCNXCL);
        asio::error_code ignored;
        device.close(ignored);
    }
}

void DropUnreadInput(asio::serial_port& device) {
    tcflush(device.native_handle(), TCIFLUSH);
}

SerialError DeviceError(int port, const asio::error_code& error) {
    const int code = error.category() == asio::error::get_system_category() ? error.value() : 0;
    const bool gone = error == asio::error::eof || code == EIO || code == ENXIO || code == ENODEV;
    return gone ? SerialError::Lost(port) : SerialError::Other(port, error);
}
