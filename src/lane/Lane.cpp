#include "lane/Lane.h"

#include "lane/LaneError.h"
#include "platform/serial/SerialPorts.h"

// What stands at one port.
struct Lane::Station {
    std::unique_ptr<VirtualPort> line; // none while unplugged
    std::unique_ptr<VirtualScanner> scanner;
    std::unique_ptr<VirtualScale> scale;
    bool scaleIsBuiltIn = true; // into the scanner, if it has one
    bool muted = false;

    void Send(const std::string& bytes) const {
        if (line && !muted) {
            line->Send(bytes);
        }
    }
    // The scale's letters are part of no scanner command, so one line serves both.
    void Receive(const std::string& bytes) const {
        for (const char byte : bytes) {
            if (muted) {
                return;
            }
            if (scale && VirtualScale::IsCommand(byte)) {
                scale->Receive(byte);
            } else if (scanner) {
                scanner->Receive(byte);
            }
        }
    }
};

Lane::Lane(asio::io_context& context, LaneOptions options, std::function<void(const std::string&)> report)
    : context_(context), options_(std::move(options)), report_(std::move(report)) {}

Lane::~Lane() = default;

void Lane::PutScanner(int port, int programmingClass, const std::string& firmware) {
    auto scanner = std::make_unique<VirtualScanner>(programmingClass, firmware,
                                                    VirtualScanner::Surroundings{.send = Sender(port),
                                                                                 .report = Reporter(port),
                                                                                 .preparation = options_.preparation});
    Station& station = Prepare(port);
    if (station.scaleIsBuiltIn) {
        station.scale = scanner->HasScale() ? MakeScale(port) : nullptr;
    }
    station.scanner = std::move(scanner);
    Reporter(port)("got a scanner of class " + std::to_string(programmingClass));
}

void Lane::PutScale(int port) {
    Station& station = Prepare(port);
    station.scale = MakeScale(port);
    station.scaleIsBuiltIn = false;
    Reporter(port)("got a scale");
}

void Lane::Scan(int port, const std::string& label) {
    if (label.empty()) {
        throw LaneError("there is no label to scan");
    }
    ScannerAt(port).Scan(label);
}

void Lane::Weigh(int port, const std::string& text, VirtualScale::Unit unit) {
    ScaleAt(port).Weigh(text, unit);
}

void Lane::BecomeUnstable(int port) {
    ScaleAt(port).BecomeUnstable();
}

void Lane::Power(int port) {
    VirtualScanner& scanner = ScannerAt(port);
    PluggedIn(port).line->DropOutput();
    scanner.Power();
}

void Lane::Mute(int port, bool muted) {
    PluggedIn(port).muted = muted;
    Reporter(port)(muted ? "keeps silent" : "answers again");
}

void Lane::RefuseNext(int port) {
    ScannerAt(port).RefuseNext();
    Reporter(port)("will refuse the next configuration");
}

std::string Lane::Block(int port) const {
    return ScannerAt(port).Block();
}

void Lane::Unplug(int port) {
    PluggedIn(port).line.reset();
    Reporter(port)("was unplugged");
}

void Lane::Plug(int port) {
    const auto found = stations_.find(port);
    if (found == stations_.end()) {
        throw LaneError("nothing was ever plugged in at " + SerialPortName(port));
    }
    if (found->second->line) {
        throw LaneError(SerialPortName(port) + " is plugged in already");
    }
    PlugIn(port, *found->second);
}

void Lane::Pace(bool paced) {
    options_.paced = paced;
    for (const auto& [port, station] : stations_) {
        if (station->line) {
            station->line->Pace(paced);
        }
    }
}

void Lane::Clear() {
    stations_.clear();
}

std::vector<LanePortState> Lane::State() const {
    std::vector<LanePortState> state;
    for (const auto& [port, station] : stations_) {
        LanePortState& entry = state.emplace_back();
        entry.port = port;
        entry.pluggedIn = station->line != nullptr;
        entry.muted = station->muted;
        if (station->scanner) {
            entry.scannerClass = station->scanner->ProgrammingClass();
            entry.firmware = station->scanner->Firmware();
        }
        if (station->scale) {
            entry.hasScale = true;
            entry.weight = station->scale->Display();
            entry.unstable = station->scale->Unstable();
        }
    }
    return state;
}

Lane::Station& Lane::Prepare(int port) {
    auto& station = stations_[port];
    if (station && station->line) {
        return *station;
    }
    auto fresh = std::make_unique<Station>();
    try {
        PlugIn(port, *fresh);
    } catch (...) {
        if (!station) {
            stations_.erase(port);
        }
        throw;
    }
    station = std::move(fresh);
    return *station;
}

Lane::Station& Lane::PluggedIn(int port) const {
    const auto found = stations_.find(port);
    if (found == stations_.end()) {
        throw LaneError("there is nothing at " + SerialPortName(port));
    }
    if (!found->second->line) {
        throw LaneError(SerialPortName(port) + " is unplugged");
    }
    return *found->second;
}

VirtualScanner& Lane::ScannerAt(int port) const {
    const Station& station = PluggedIn(port);
    if (!station.scanner) {
        throw LaneError("there is no scanner at " + SerialPortName(port));
    }
    return *station.scanner;
}

VirtualScale& Lane::ScaleAt(int port) const {
    const Station& station = PluggedIn(port);
    if (!station.scale) {
        throw LaneError("there is no scale at " + SerialPortName(port));
    }
    return *station.scale;
}

void Lane::PlugIn(int port, Station& station) {
    VirtualPort::Handlers handlers{
        .received = [&station](const std::string& bytes) { station.Receive(bytes); },
        .lost = [report = Reporter(port)](
                    std::size_t count) { report("lost " + std::to_string(count) + " bytes, since nobody reads them"); },
    };
    station.line = std::make_unique<VirtualPort>(context_, options_.directory, port, std::move(handlers));
    station.line->Pace(options_.paced);
    Reporter(port)("was plugged in");
}

std::unique_ptr<VirtualScale> Lane::MakeScale(int port) const {
    return std::make_unique<VirtualScale>(Sender(port), Reporter(port));
}

// By number, not by address: a device may be made before its station.
std::function<void(const std::string&)> Lane::Sender(int port) const {
    return [this, port](const std::string& bytes) { stations_.at(port)->Send(bytes); };
}

std::function<void(const std::string&)> Lane::Reporter(int port) const {
    return [this, port](const std::string& event) { report_(SerialPortName(port) + ": " + event); };
}
