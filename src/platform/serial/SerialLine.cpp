#include "platform/serial/SerialLine.h"

#include "platform/serial/SerialDevice.h"

#include <asio/buffer.hpp>
#include <asio/steady_timer.hpp>
#include <asio/write.hpp>

#include <array>
#include <deque>

// One opening of the line. Pending operations keep it alive, so that a handler may drop the line itself.
class SerialLine::Connection : public std::enable_shared_from_this<Connection> {
public:
    Connection(asio::io_context& context, int port, const SerialSettings& settings)
        : port_(port), device_(OpenSerialDevice(context, port, settings)), limit_(context) {}
    ~Connection() { CloseSerialDevice(device_); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    [[nodiscard]] bool IsOpen() const { return device_.is_open(); }

    void Close() {
        CloseSerialDevice(device_);
        limit_.cancel();
        // Handlers and messages go with the connection, not here: one of them may be in use just now.
        silent_ = true;
    }

    void Read(BytesHandler onBytes, ErrorHandler onError) {
        onBytes_ = std::move(onBytes);
        onError_ = std::move(onError);
        ReadNext();
    }

    void Write(std::string bytes, std::chrono::milliseconds limit, WrittenHandler onWritten) {
        queue_.push_back({std::move(bytes), limit, std::move(onWritten)});
        if (queue_.size() == 1) {
            WriteNext();
        }
    }

    void DropUnread() { ::DropUnreadInput(device_); }

private:
    struct Message {
        std::string bytes;
        std::chrono::milliseconds limit;
        WrittenHandler onWritten;
    };

    void ReadNext() {
        device_.async_read_some(asio::buffer(buffer_),
                                [self = shared_from_this()](const asio::error_code& error, std::size_t count) {
                                    self->ReadDone(error, count);
                                });
    }

    void ReadDone(const asio::error_code& error, std::size_t count) {
        if (silent_) {
            return;
        }
        if (error) {
            Fail(DeviceError(port_, error));
            return;
        }
        const std::string bytes(buffer_.data(), count);
        ReadNext();
        onBytes_(bytes);
    }

    void WriteNext() {
        limit_.expires_after(queue_.front().limit);
        limit_.async_wait([self = shared_from_this(), turn = turn_](const asio::error_code& error) {
            if (!error && !self->silent_ && turn == self->turn_) {
                self->Fail(SerialError::TimedOut(self->port_));
            }
        });
        asio::async_write(
            device_, asio::buffer(queue_.front().bytes),
            [self = shared_from_this()](const asio::error_code& error, std::size_t) { self->WriteDone(error); });
    }

    void WriteDone(const asio::error_code& error) {
        if (silent_) {
            return;
        }
        if (error) {
            Fail(DeviceError(port_, error));
            return;
        }
        ++turn_;
        limit_.cancel();
        const WrittenHandler onWritten = std::move(queue_.front().onWritten);
        queue_.pop_front();
        if (!queue_.empty()) {
            WriteNext();
        }
        if (onWritten) {
            onWritten();
        }
    }

    void Fail(const SerialError& error) {
        Close();
        if (onError_) {
            onError_(error);
        }
    }

    int port_;
    asio::serial_port device_;
    asio::steady_timer limit_;
    std::array<char, 4096> buffer_{};
    std::deque<Message> queue_;
    unsigned turn_ = 0;
    bool silent_ = false;
    BytesHandler onBytes_;
    ErrorHandler onError_;
};

SerialLine::SerialLine(asio::io_context& context) : context_(context) {}

SerialLine::~SerialLine() {
    Close();
}

void SerialLine::Open(int port, const SerialSettings& settings) {
    Close();
    connection_ = std::make_shared<Connection>(context_, port, settings);
}

bool SerialLine::IsOpen() const noexcept {
    return connection_ && connection_->IsOpen();
}

void SerialLine::Close() noexcept {
    if (connection_) {
        connection_->Close();
        connection_.reset();
    }
}

void SerialLine::Read(BytesHandler onBytes, ErrorHandler onError) {
    if (IsOpen()) {
        connection_->Read(std::move(onBytes), std::move(onError));
    }
}

void SerialLine::Write(std::string bytes, std::chrono::milliseconds limit, WrittenHandler onWritten) {
    if (IsOpen()) {
        connection_->Write(std::move(bytes), limit, std::move(onWritten));
    }
}

void SerialLine::DropUnreadInput() {
    if (IsOpen()) {
        connection_->DropUnread();
    }
}
