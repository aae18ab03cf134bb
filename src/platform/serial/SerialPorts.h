// Which serial ports there are: from "COM" and a number to the device that the system opens.
//
// Off Windows a port is the entry "COMn" (a device or a link to one) of a port directory: of the one that the
// environment variable RAVLIN_PORTS names, else of $XDG_RUNTIME_DIR/ravlin/ports and then of /etc/ravlin/ports.
// On Windows it is the system's own port, "\\.\COMn", whether it exists or not.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

// "COM" and the number in decimal.
[[nodiscard]] std::string SerialPortName(int port);

// The port directory of this user's own: RAVLIN_PORTS or the one in the runtime directory; nothing where neither is
// set.
[[nodiscard]] std::optional<std::filesystem::path> UserSerialPortDirectory();

// The directories that are searched for ports, first match first; none on Windows. They need not exist.
[[nodiscard]] std::vector<std::filesystem::path> SerialPortDirectories();

// What to open for the port; nothing when the port does not exist. A link that leads nowhere is still a port, whose
// device is missing: opening it says so.
[[nodiscard]] std::optional<std::filesystem::path> SerialPortDevice(int port);

// The numbers of the ports there are, ascending.
[[nodiscard]] std::vector<int> SerialPortNumbers();
