#include "platform/serial/SerialPorts.h"

#include <array>

#include <windows.h>

namespace {

constexpr int LastPort = 256;

} // namespace

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
    return "\\\\.\\" + SerialPortName(port);
}

std::vector<int> SerialPortNumbers() {
    std::vector<int> ports;
    for (int port = 1; port <= LastPort; ++port) {
        std::array<char, 1024> target{};
        if (QueryDosDeviceA(SerialPortName(port).c_str(), target.data(), static_cast<DWORD>(target.size())) != 0) {
            ports.push_back(port);
        }
    }
    return ports;
}
