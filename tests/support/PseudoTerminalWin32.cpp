#include "support/InProcessLine.h"
#include "support/PseudoTerminal.h"

#include <stdexcept>

using Clock = std::chrono::steady_clock;

TemporaryPorts::TemporaryPorts() = default;

TemporaryPorts::~TemporaryPorts() = default;

void TemporaryPorts::Remove(int /*port*/) const {} // it went with its terminal

class PseudoTerminal::Ends : public InProcessLine {};

PseudoTerminal::PseudoTerminal() : ends_(std::make_shared<Ends>()) {}

PseudoTerminal::PseudoTerminal(const TemporaryPorts& /*ports*/, int port) : PseudoTerminal() {
    InProcessLine::PlugIn(port, ends_);
}

PseudoTerminal::~PseudoTerminal() {
    Unplug();
}

void PseudoTerminal::Send(const std::string& bytes) const {
    if (!ends_->Put(InProcessLine::Side::Device, bytes))
        throw std::runtime_error("sending to the program");
}

std::string PseudoTerminal::Receive(std::size_t count, std::chrono::milliseconds limit) const {
    const auto deadline = Clock::now() + limit;
    std::string received;
    while (received.size() < count) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        const std::string next = ends_->Take(InProcessLine::Side::Device, count - received.size(), left);
        if (next.empty())
            break;
        received += next;
    }
    return received;
}

void PseudoTerminal::Unplug() {
    ends_->Unplug();
}
