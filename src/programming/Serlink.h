// The line to a scanner that is to be programmed. A session sets the properties, sends a command and waits for its
// outcome; ports, timing and framing are the implementation's.
#pragma once

#include <cstdint>
#include <string>

class Serlink {
public:
    virtual ~Serlink() = default;
    Serlink(const Serlink&) = delete;
    Serlink& operator=(const Serlink&) = delete;

    // The text that wakes the scanner into programming mode; empty for scanners that enter it at power-up.
    [[nodiscard]] virtual std::string EntryCommand() const = 0;
    virtual void EntryCommand(const std::string& command) = 0;
    // What the scanner announces itself with, as bytes from the high one, a zero high byte left out.
    [[nodiscard]] virtual std::int16_t EntryMode() const = 0;
    virtual void EntryMode(std::int16_t mode) = 0;
    // The command to send; after a reply the text of the reply.
    [[nodiscard]] virtual std::string CommandData() const = 0;
    virtual void CommandData(const std::string& data) = 0;
    // n of "COMn".
    [[nodiscard]] virtual std::int16_t PortNumber() const = 0;
    virtual void PortNumber(std::int16_t port) = 0;

    // True when the scanner answered the pending command with a configuration, which is then in CommandData.
    virtual bool ReceiveReply() = 0;
    // Sends EntryCommand, the first time of a session, and CommandData. Errors: NumberedError when the port cannot be
    // used.
    virtual void SendCommand() = 0;
    // True when the scanner acknowledged the last command.
    virtual bool CommandSucceeded() = 0;

    // Why the last call did not lead to what was wanted: UTF-8, what happened and what to do about it; else empty.
    [[nodiscard]] virtual const std::string& FailureText() const noexcept = 0;

protected:
    Serlink() = default;
};
