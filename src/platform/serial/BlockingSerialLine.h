// A serial line for whoever asks and waits for the answer, as the programming session does. Every wait has a limit,
// and while it lasts an idle function is called at least every 20 ms, so that a window stays alive on the same thread.
#pragma once

#include "platform/serial/SerialLine.h"

#include <asio/io_context.hpp>

#include <chrono>
#include <functional>
#include <optional>
#include <string>

class BlockingSerialLine {
public:
    using IdleFunction = std::function<void()>;

    // An exception of the idle function ends the wait and passes on; the line stays usable.
    explicit BlockingSerialLine(IdleFunction idle = {});

    // As SerialLine::Open.
    void Open(int port, const SerialSettings& settings = {});
    [[nodiscard]] bool IsOpen() const noexcept { return line_.IsOpen(); }
    void Close() noexcept;

    // What has come: at least one byte, or nothing when none came within the limit.
    // Errors: SerialError; the line is closed then. Lost is raised at once, not at the end of the limit.
    [[nodiscard]] std::string Read(std::chrono::milliseconds limit);
    // Returns when the system has taken all bytes. Errors: SerialError, TimedOut among them; the line is closed then.
    void Write(const std::string& bytes, std::chrono::milliseconds limit);
    // Discards all that has come. Errors: SerialError.
    void DropUnreadInput();

private:
    void RaiseFailure();
    // Waits until done() or the limit. Errors: SerialError of a line that failed meanwhile or is not open.
    void WaitUntil(const std::function<bool()>& done, std::chrono::milliseconds limit);

    IdleFunction idle_;
    asio::io_context context_{1};
    SerialLine line_;
    std::string unread_;
    std::optional<SerialError> failure_;
    int port_ = 0;
};
