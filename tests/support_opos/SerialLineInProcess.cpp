// The serial lines under the tests' own control objects, in the place of those of Windows, where no test can put a
// device behind a port.
#include "platform/serial/SerialLine.h"
#include "platform/serial/SerialPorts.h"
#include "support/InProcessLine.h"

#include <asio/post.hpp>

class SerialLine::Connection : public std::enable_shared_from_this<Connection> {
public:
    Connection(asio::io_context& context, int port, std::shared_ptr<InProcessLine> line)
        : context_(context), port_(port), line_(std::move(line)) {}

    void Open() {
        open_ = line_->Open([self = weak_from_this(), &context = context_] {
            asio::post(context, [self] {
                if (const auto connection = self.lock())
                    connection->Look();
            });
        });
        if (!open_)
            throw SerialError::Busy(port_);
    }
    ~Connection() { Close(); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    [[nodiscard]] bool IsOpen() const { return open_; }
    void Close() {
        if (open_)
            line_->Close();
        open_ = false;
    }
    void Read(BytesHandler onBytes, ErrorHandler onError) {
        onBytes_ = std::move(onBytes);
        onError_ = std::move(onError);
        asio::post(context_, [self = shared_from_this()] { self->Look(); });
    }
    void Write(const std::string& bytes, WrittenHandler onWritten) {
        if (line_->Put(InProcessLine::Side::Program, bytes) && onWritten)
            asio::post(context_, std::move(onWritten));
    }
    void DropUnread() { line_->DropInput(); }

private:
    // Hands over what has come, or says that the line has gone.
    void Look() {
        const auto self = shared_from_this(); // a handler may drop the line
        if (!open_ || !onBytes_)
            return;
        if (const std::string bytes = line_->Take(InProcessLine::Side::Program, 4096, std::chrono::milliseconds(0));
            !bytes.empty()) {
            onBytes_(bytes);
        } else if (!line_->Plugged()) {
            Close();
            onError_(SerialError::Lost(port_));
        }
    }

    asio::io_context& context_;
    int port_;
    std::shared_ptr<InProcessLine> line_;
    bool open_ = false;
    BytesHandler onBytes_;
    ErrorHandler onError_;
};

SerialLine::SerialLine(asio::io_context& context) : context_(context) {}

SerialLine::~SerialLine() {
    Close();
}

void SerialLine::Open(int port, const SerialSettings& /*settings*/) {
    Close();
    auto line = InProcessLine::AtPort(port);
    if (!line)
        throw SerialError::NoSuchPort(port);
    auto connection = std::make_shared<Connection>(context_, port, std::move(line));
    connection->Open();
    connection_ = std::move(connection);
}

bool SerialLine::IsOpen() const noexcept {
    return connection_ && connection_->IsOpen();
}

void SerialLine::Close() noexcept {
    if (connection_)
        connection_->Close();
    connection_.reset();
}

void SerialLine::Read(BytesHandler onBytes, ErrorHandler onError) {
    if (IsOpen())
        connection_->Read(std::move(onBytes), std::move(onError));
}

void SerialLine::Write(std::string bytes, std::chrono::milliseconds /*limit*/, WrittenHandler onWritten) {
    if (IsOpen())
        connection_->Write(bytes, std::move(onWritten));
}

void SerialLine::DropUnreadInput() {
    if (IsOpen())
        connection_->DropUnread();
}

std::string SerialPortName(int port) {
    return "COM" + std::to_string(port);
}

std::optional<std::filesystem::path> UserSerialPortDirectory() {
    return std::nullopt;
}

std::vector<std::filesystem::path> SerialPortDirectories() {
    return {};
}

std::optional<std::filesystem::path> SerialPortDevice(int port) {
    if (!InProcessLine::AtPort(port))
        return std::nullopt;
    return SerialPortName(port);
}

std::vector<int> SerialPortNumbers() {
    return {};
}
