// Opening a serial device, the part of a line that differs from system to system.
#pragma once

#include "platform/serial/SerialError.h"
#include "platform/serial/SerialSettings.h"

#include <asio/io_context.hpp>
#include <asio/serial_port.hpp>

// The open device of the port: locked against other programs, raw, without flow control, at the settings. Bytes that
// came before stay readable. Errors: SerialError.
[[nodiscard]] asio::serial_port OpenSerialDevice(asio::io_context& context, int port, const SerialSettings& settings);

// Gives the lock back and closes the device; nothing when it is closed already.
void CloseSerialDevice(asio::serial_port& device) noexcept;

// Discards what was received and not read yet.
void DropUnreadInput(asio::serial_port& device);

// What an operation on the open device failed with: Lost when the device has gone, else Other.
[[nodiscard]] SerialError DeviceError(int port, const asio::error_code& error);
