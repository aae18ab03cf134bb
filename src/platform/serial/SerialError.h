// Why a serial port cannot be used, with a text that says what the user can do about it.
#pragma once

#include "profiles/NumberedError.h"

#include <string>
#include <system_error>

enum class SerialFault {
    NoSuchPort,   // the port is not set up, or what it leads to is not there
    Busy,         // another program, or another part of this one, holds the port
    NotPermitted, // the user may not open the device
    Lost,         // the device was unplugged, or the program behind a pseudo terminal has gone
    TimedOut,     // the line did not take what was to be sent within the limit
    Other,        // not a serial device, settings that the device refuses, anything else
};

class SerialError : public NumberedError {
public:
    // description: UTF-8, a whole sentence that names the port.
    SerialError(SerialFault fault, int port, const std::string& description);

    [[nodiscard]] SerialFault Fault() const noexcept { return fault_; }
    // n of "COMn".
    [[nodiscard]] int Port() const noexcept { return port_; }

    [[nodiscard]] static SerialError NoSuchPort(int port);
    [[nodiscard]] static SerialError DeviceMissing(int port, const std::string& device);
    [[nodiscard]] static SerialError Busy(int port);
    [[nodiscard]] static SerialError NotPermitted(int port, const std::string& device);
    [[nodiscard]] static SerialError Lost(int port);
    [[nodiscard]] static SerialError TimedOut(int port);
    [[nodiscard]] static SerialError NotSerial(int port, const std::string& device);
    // cause: why, in the system's words.
    [[nodiscard]] static SerialError Other(int port, const std::error_code& cause);

private:
    SerialFault fault_;
    int port_;
};
