// A serial line that is read in the background of an Asio loop: for whoever waits for bytes at any time, as a service
// object does. BlockingSerialLine is the same line for whoever asks and waits for the answer.
//
// Everything, handlers included, happens on the thread that runs the loop; the loop outlives the line. A handler may
// close or destroy the line.
#pragma once

#include "platform/serial/SerialError.h"
#include "platform/serial/SerialSettings.h"

#include <asio/io_context.hpp>

#include <chrono>
#include <functional>
#include <memory>
#include <string>

class SerialLine {
public:
    using BytesHandler = std::function<void(const std::string& bytes)>;
    using ErrorHandler = std::function<void(const SerialError& error)>;
    using WrittenHandler = std::function<void()>;

    explicit SerialLine(asio::io_context& context);
    ~SerialLine();
    SerialLine(const SerialLine&) = delete;
    SerialLine& operator=(const SerialLine&) = delete;

    // Opens "COM" and the number for this line alone; an open line is closed first. What the device sent before may
    // still be there: DropUnreadInput where that is not wanted. Errors: SerialError of any kind but TimedOut.
    void Open(int port, const SerialSettings& settings = {});
    [[nodiscard]] bool IsOpen() const noexcept;
    // No handler is called any more.
    void Close() noexcept;

    // Hands over what comes, at least one byte at a time, until the line is closed. onError is called once, when the
    // line was lost, timed out or failed otherwise; it is closed by then. Once per opening.
    void Read(BytesHandler onBytes, ErrorHandler onError);
    // Sends the bytes behind what is still being sent. Whatever the line has not taken within the limit, counted from
    // its turn, is an error of kind TimedOut, which goes to Read's onError. On a closed line: nothing.
    void Write(std::string bytes, std::chrono::milliseconds limit, WrittenHandler onWritten = {});
    // Discards what was received; bytes that the running read holds already are still handed over.
    void DropUnreadInput();

private:
    class Connection;
    asio::io_context& context_;
    std::shared_ptr<Connection> connection_;
};
