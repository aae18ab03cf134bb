#include "platform/serial/SerialDevice.h"

#include "platform/serial/SerialPorts.h"

#include <asio/error.hpp>

#include <windows.h>

namespace {

SerialError OpeningError(int port, const asio::error_code& error) {
    switch (error.value()) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
        return SerialError::NoSuchPort(port);
    case ERROR_ACCESS_DENIED: // what Windows says of a port that another program holds
    case ERROR_SHARING_VIOLATION:
        return SerialError::Busy(port);
    default:
        return SerialError::Other(port, error);
    }
}

asio::serial_port_base::parity::type Parity(SerialParity parity) {
    switch (parity) {
    case SerialParity::Even:
        return asio::serial_port_base::parity::even;
    case SerialParity::Odd:
        return asio::serial_port_base::parity::odd;
    case SerialParity::None:
        break;
    }
    return asio::serial_port_base::parity::none;
}

} // namespace

asio::serial_port OpenSerialDevice(asio::io_context& context, int port, const SerialSettings& settings) {
    asio::serial_port device(context);
    asio::error_code error;
    // Windows opens a serial port for one program only.
    device.open(SerialPortDevice(port)->string(), error);
    if (error) {
        throw OpeningError(port, error);
    }
    using Base = asio::serial_port_base;
    try {
        device.set_option(Base::baud_rate(settings.baudRate));
        device.set_option(Base::character_size(settings.dataBits));
        device.set_option(Base::parity(Parity(settings.parity)));
        device.set_option(Base::stop_bits(settings.stopBits == 2 ? Base::stop_bits::two : Base::stop_bits::one));
        device.set_option(Base::flow_control(Base::flow_control::none));
    } catch (const asio::system_error& refused) {
        throw SerialError::Other(port, refused.code());
    }
    return device;
}

void CloseSerialDevice(asio::serial_port& device) noexcept {
    asio::error_code ignored;
    device.close(ignored);
}

void DropUnreadInput(asio::serial_port& device) {
    PurgeComm(device.native_handle(), PURGE_RXCLEAR);
}

SerialError DeviceError(int port, const asio::error_code& error) {
    const int code = error.value();
    // What drivers of plugged adapters report once the adapter has gone.
    const bool gone = error == asio::error::eof || code == ERROR_DEVICE_NOT_CONNECTED || code == ERROR_GEN_FAILURE ||
                      code == ERROR_ACCESS_DENIED || code == ERROR_BAD_COMMAND || code == ERROR_DEVICE_REMOVED ||
                      code == ERROR_OPERATION_ABORTED;
    return gone ? SerialError::Lost(port) : SerialError::Other(port, error);
}
