#include "platform/serial/SerialError.h"

#include "platform/serial/SerialPorts.h"

namespace {

// The usual numbers of the errors that a program meets with devices.
std::uint32_t NumberOf(SerialFault fault) {
    constexpr std::uint32_t DeviceIo = 57;
    constexpr std::uint32_t DeviceUnavailable = 68;
    constexpr std::uint32_t PermissionDenied = 70;
    switch (fault) {
    case SerialFault::NoSuchPort:
        return DeviceUnavailable;
    case SerialFault::Busy:
    case SerialFault::NotPermitted:
        return PermissionDenied;
    case SerialFault::Lost:
    case SerialFault::TimedOut:
    case SerialFault::Other:
        break;
    }
    return DeviceIo;
}

std::string WhereToLook(int port) {
    const auto directories = SerialPortDirectories();
    if (directories.empty()) {
        return "Check the port number in the device manager.";
    }
    std::string list;
    for (const auto& directory : directories) {
        list += (list.empty() ? "" : " or ") + directory.string();
    }
    return "Check the port number, or link " + SerialPortName(port) + " to the device in " + list +
           " (the variable RAVLIN_PORTS names another directory).";
}

} // namespace

SerialError::SerialError(SerialFault fault, int port, const std::string& description)
    : NumberedError(NumberOf(fault), description), fault_(fault), port_(port) {}

SerialError SerialError::NoSuchPort(int port) {
    return {SerialFault::NoSuchPort, port, SerialPortName(port) + " does not exist. " + WhereToLook(port)};
}

SerialError SerialError::DeviceMissing(int port, const std::string& device) {
    return {SerialFault::NoSuchPort, port,
            SerialPortName(port) + " leads to " + device +
                ", which is not there. Check that the device is plugged in."};
}

SerialError SerialError::Busy(int port) {
    return {SerialFault::Busy, port,
            SerialPortName(port) + " is used by another program or window. Close that one and try again."};
}

SerialError SerialError::NotPermitted(int port, const std::string& device) {
    return {SerialFault::NotPermitted, port,
            "You may not use " + SerialPortName(port) + ". Ask for permission to read and write " + device +
                " (on many systems: membership of the group dialout)."};
}

SerialError SerialError::Lost(int port) {
    return {SerialFault::Lost, port,
            "The connection at " + SerialPortName(port) + " was lost. Check the cable, then try again."};
}

SerialError SerialError::TimedOut(int port) {
    return {SerialFault::TimedOut, port,
            "The device at " + SerialPortName(port) +
                " takes no data. Check that it is switched on and the cable fits."};
}

SerialError SerialError::NotSerial(int port, const std::string& device) {
    return {SerialFault::Other, port,
            SerialPortName(port) + " leads to " + device + ", which is not a serial device. Correct the link."};
}

SerialError SerialError::Other(int port, const std::error_code& cause) {
    return {SerialFault::Other, port,
            SerialPortName(port) + " cannot be used: " + cause.message() +
                ". Check the device and its cable, then try again."};
}
