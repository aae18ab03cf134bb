// A serial port with nobody's hardware behind it: a raw pseudo terminal that is entered as "COMn" while this object
// lives. Its end is what unplugging is: whoever has the port open loses it at once.
#pragma once

#include "lane/PacedQueue.h"
#include "lane/PortEntry.h"

#include <asio/io_context.hpp>
#include <asio/posix/stream_descriptor.hpp>

#include <array>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

class VirtualPort {
public:
    struct Handlers {
        // What a program sent, on the loop's thread. Must not destroy the port.
        std::function<void(const std::string& bytes)> received;
        // How many bytes found no place, since no program reads.
        std::function<void(std::size_t count)> lost;
    };

    // Errors: LaneError.
    VirtualPort(asio::io_context& context, const std::filesystem::path& directory, int port, Handlers handlers);
    ~VirtualPort();
    VirtualPort(const VirtualPort&) = delete;
    VirtualPort& operator=(const VirtualPort&) = delete;

    // As a line does, it drops what nobody takes.
    void Send(const std::string& bytes) { output_.Push(bytes); }
    // What was sent and has not passed the line never will.
    void DropOutput() { output_.Clear(); }
    // Both directions at 9600 baud, or at once.
    void Pace(bool paced);

private:
    void Open();
    void Read();
    void Put(const std::string& bytes);
    void Admit();

    Handlers handlers_;
    asio::posix::stream_descriptor master_;
    // Kept open, so that the line and its settings last between programs.
    asio::posix::stream_descriptor slave_;
    asio::steady_timer admission_;
    PacedQueue input_;
    PacedQueue output_;
    std::array<char, 4096> buffer_{};
    std::shared_ptr<bool> life_ = std::make_shared<bool>(true);
    std::string device_;
    std::optional<PortEntry> entry_;
};
