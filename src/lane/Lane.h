// The virtual lane: scanners and scales on virtual serial ports. All on the thread that runs the loop.
#pragma once

#include "lane/VirtualPort.h"
#include "lane/VirtualScale.h"
#include "lane/VirtualScanner.h"

#include <asio/io_context.hpp>

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

struct LaneOptions {
    std::filesystem::path directory; // of the ports
    bool paced = false;              // whether bytes take their time, as at 9600 baud
    std::chrono::milliseconds preparation{4500};
};

// How one port stands, for a display.
struct LanePortState {
    int port = 0;
    bool pluggedIn = false;
    bool muted = false;
    int scannerClass = -1; // -1 without a scanner
    std::string firmware;
    bool hasScale = false;
    std::string weight; // with its unit
    bool unstable = false;

    bool operator==(const LanePortState&) const = default;
};

// Operations on a port that has no such device or is unplugged are LaneErrors.
class Lane {
public:
    // report gets a line for each thing that happens, "COM1: scanned 123".
    Lane(asio::io_context& context, LaneOptions options, std::function<void(const std::string& event)> report);
    ~Lane();
    Lane(const Lane&) = delete;
    Lane& operator=(const Lane&) = delete;

    // Puts the device on the port, beside the other kind where there is one: then both share the line. A device of the
    // same kind is replaced. On a port that is unplugged the device comes alone and is plugged in. A scanner with a
    // scale built in brings it along, unless there is a scale of its own, and takes it away again.
    void PutScanner(int port, int programmingClass, const std::string& firmware);
    void PutScale(int port);

    void Scan(int port, const std::string& label);
    void Weigh(int port, const std::string& text, VirtualScale::Unit unit);
    void BecomeUnstable(int port);
    void Power(int port);
    // A muted port neither sends nor hears.
    void Mute(int port, bool muted);
    void RefuseNext(int port);
    [[nodiscard]] std::string Block(int port) const;
    void Unplug(int port);
    // With the devices it had.
    void Plug(int port);
    void Pace(bool paced);
    // Takes all ports away.
    void Clear();

    [[nodiscard]] std::vector<LanePortState> State() const;

private:
    struct Station;
    // Makes it where there is none; empties it where it is unplugged.
    Station& Prepare(int port);
    [[nodiscard]] Station& PluggedIn(int port) const;
    [[nodiscard]] VirtualScanner& ScannerAt(int port) const;
    [[nodiscard]] VirtualScale& ScaleAt(int port) const;
    void PlugIn(int port, Station& station);
    [[nodiscard]] std::unique_ptr<VirtualScale> MakeScale(int port) const;
    [[nodiscard]] std::function<void(const std::string&)> Sender(int port) const;
    [[nodiscard]] std::function<void(const std::string&)> Reporter(int port) const;

    asio::io_context& context_;
    LaneOptions options_;
    std::function<void(const std::string&)> report_;
    std::map<int, std::unique_ptr<Station>> stations_;
};
