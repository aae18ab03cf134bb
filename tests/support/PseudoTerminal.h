// Serial lines for tests: pseudo terminals linked as "COMn" in a port directory of their own. On Windows, which has
// none, they are lines within this process, for the control objects alone (support_opos).
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

// A port directory in a temporary place; RAVLIN_PORTS names it as long as it lives.
class TemporaryPorts {
public:
    TemporaryPorts();
    ~TemporaryPorts();
    TemporaryPorts(const TemporaryPorts&) = delete;
    TemporaryPorts& operator=(const TemporaryPorts&) = delete;

    // Not on Windows.
    [[nodiscard]] const std::filesystem::path& Directory() const { return directory_; }
    // Where "COMn" lies, whether it exists or not; not on Windows.
    [[nodiscard]] std::filesystem::path Entry(int port) const;
    // Takes a port away whose terminal was unplugged.
    void Remove(int port) const;
    // Not on Windows.
    void Link(int port, const std::filesystem::path& device) const;

private:
    std::filesystem::path directory_;
    std::optional<std::string> former_;
};

// The device's end of a raw pseudo terminal; the program opens the other end. Failures throw std::runtime_error.
class PseudoTerminal {
public:
    PseudoTerminal();
    // Linked as the port.
    PseudoTerminal(const TemporaryPorts& ports, int port);
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    // The path of the program's end.
    [[nodiscard]] const std::string& Device() const { return device_; }
    void Send(const std::string& bytes) const;
    // What the program sent, once it is at least count bytes; what there is after the limit otherwise.
    [[nodiscard]] std::string Receive(std::size_t count,
                                      std::chrono::milliseconds limit = std::chrono::seconds(5)) const;
    // Waits until text has come from the program; what came up to its end, or all after the limit.
    [[nodiscard]] std::string ReceiveUntil(const std::string& text,
                                           std::chrono::milliseconds limit = std::chrono::seconds(5)) const;
    // Waits until what was sent lies ready for the program to read; false after 5 s.
    [[nodiscard]] bool WaitUntilReadable() const;
    // Takes the device away; an open line notices at once.
    void Unplug();

private:
    class Ends;
    std::shared_ptr<Ends> ends_;
    std::string device_;
    // What the port's entry points to. It goes before the device does: the number of a pseudo terminal is given to the
    // next one at once, also to that of a test beside this one.
    std::filesystem::path node_;
};
